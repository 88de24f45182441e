/// \file
/// What lies nearest to the eye in each sample of a picture.
#pragma once

#include "camera.h"
#include "crew.h"
#include "model.h"

#include <atomic>
#include <cstdint>
#include <vector>

namespace Viewer {

/// A point of the model as the picture sees it.
struct Seen {
  float x = 0;         ///< samples from the left
  float y = 0;         ///< samples from the top
  float nearness = 0;  ///< one divided by the depth; 0 for what lies behind the eye
};

/// A part of the triangle that a sample shows.
struct Hit {
  const std::array<std::uint32_t, 3>* corners = nullptr;
  std::array<float, 3> shares{};  ///< of the corners, 1 together
  bool back = false;              ///< the triangle turns its back
};

/// The depths and triangles of a picture's samples.
class Canvas {
 public:
  /// Finds the nearest triangle of each sample.
  /// \param width, height in samples
  /// \param cancelled once true, the samples may stay unfinished; null for never
  /// \threadsafety one caller at a time
  void draw(const Model& model, const Projection& projection, int width, int height, Crew& crew,
            const std::atomic<bool>* cancelled = nullptr);

  static constexpr std::uint32_t nothing = 0xFFFFFFFF;

  /// Number of the triangle that a sample shows.
  std::uint32_t triangleAt(int x, int y) const { return _triangles[index(x, y)]; }
  /// One divided by the depth of what a sample shows; 0 where it shows nothing.
  float nearnessAt(int x, int y) const { return _nearness[index(x, y)]; }
  /// What a sample shows; it must show something.
  Hit hitAt(const Model& model, int x, int y) const;
  int width() const { return _width; }
  int height() const { return _height; }

 private:
  struct Band {
    int top;
    int bottom;  // behind the last line
  };

  std::size_t index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(_width) +
           static_cast<std::size_t>(x);
  }
  void project(const Model& model, const Projection& projection, std::size_t begin,
               std::size_t end);
  void clear(const Band& band);
  void fill(const Model& model, const Band& band, const std::atomic<bool>* cancelled);
  void fillTriangle(const std::array<std::uint32_t, 3>& corners, std::uint32_t number,
                    const Band& band);

  int _width = 0;
  int _height = 0;
  std::vector<Seen> _seen;  // one for each point of the model
  std::vector<float> _nearness;
  std::vector<std::uint32_t> _triangles;
};

}  // namespace Viewer
