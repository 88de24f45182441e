/// \file
/// The arithmetic of the analysis, chunk by chunk.
#pragma once

#include "surface/analysis.h"
#include "surface/mesh.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Surface {

/// Elements with the same upper bits of their index. There are never more than 256 chunks: work
/// that is done for each pair of them does not grow with the mesh.
class Chunks {
 public:
  explicit Chunks(std::size_t elements);
  /// The number of chunks, at least 1: a chunk without elements costs less than a special case.
  unsigned count() const { return _count; }
  unsigned of(std::size_t element) const { return static_cast<unsigned>(element >> _shift); }
  std::size_t begin(unsigned chunk) const { return std::size_t{chunk} << _shift; }
  std::size_t end(unsigned chunk) const;

 private:
  std::size_t _elements;
  unsigned _shift;
  unsigned _count;
};

/// What is found out about a mesh, in passes over chunks of triangles and points.
///
/// A pass on one chunk of points needs the pass before it on all neighbours() of the chunk, and
/// the first one, findStars(), needs sortCorners() on all chunks of triangles. Whoever keeps to
/// that may run passes at the same time; the result is the same to the last bit.
///
/// Every pass throws Kyr::Stopped when its thread is to stop; its chunk is worth nothing then.
class Survey {
 public:
  /// \param mesh must outlive this object
  explicit Survey(const Mesh& mesh);

  const Chunks& triangleChunks() const { return _triangleChunks; }
  const Chunks& pointChunks() const { return _pointChunks; }

  /// Leaves out triangles without area and sorts the corners of the others by chunks of points.
  void sortCorners(unsigned triangleChunk);
  /// Lists the triangles around each point and sums up their normals.
  void findStars(unsigned chunk);
  /// The chunks, itself included, that share a triangle with this one; known after findStars().
  /// Chunks are neighbours of each other or not at all.
  const std::vector<unsigned>& neighbours(unsigned chunk) const { return _stars[chunk].neighbours; }
  /// Turns each normal into the mean of its neighbourhood.
  /// \param pass counts from 0
  void smooth(unsigned chunk, unsigned pass);
  /// Computes curvatures from the normals after so many passes of smoothing.
  void bend(unsigned chunk, unsigned passes);

  /// Gives the results away.
  Analysis take(unsigned passes);

 private:
  struct Corner {
    std::uint32_t point;
    std::uint32_t triangle;
  };
  /// Corners of a chunk of triangles; those in chunk c of points stand from first[c] on.
  struct SortedCorners {
    std::vector<std::uint32_t> first;
    std::vector<Corner> corners;
  };
  /// Triangles around the points of a chunk; those of its i-th point stand from first[i] on.
  struct Stars {
    std::vector<std::size_t> first;
    std::vector<std::uint32_t> triangles;
    std::vector<unsigned> neighbours;
  };

  Point areaNormal(const Triangle& triangle) const;
  Point weightedNormal(const Triangle& triangle) const;
  bool hasArea(const Triangle& triangle) const;
  template <class Action>
  void forEachCorner(unsigned chunk, Action action) const;
  /// Calls action with the triangles around a point, each with the point as its first corner.
  template <class Action>
  void forEachTriangleAround(std::size_t point, Action action) const;
  void listTriangles(unsigned chunk);
  void findNeighbours(unsigned chunk);
  Point meanAround(std::size_t point, const std::vector<Point>& normals) const;
  double curvatureAt(std::size_t point, const std::vector<Point>& normals) const;

  const Mesh& _mesh;
  const Chunks _triangleChunks;
  const Chunks _pointChunks;
  std::vector<SortedCorners> _corners;
  std::vector<Stars> _stars;
  /// The normals after even and after odd passes of smoothing. A chunk is one pass ahead of its
  /// neighbours at most, and then writes where they have finished reading.
  std::vector<Point> _normals[2];
  std::vector<double> _curvature;
};

}  // namespace Surface
