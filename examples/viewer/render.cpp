#include "render.h"

#include "shading.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Viewer {

namespace {

/// Turns what lies in the samples of a canvas into pixels.
class Painter {
 public:
  Painter(const Order& order, const Projection& projection, const Canvas& canvas, int samples,
          Picture& picture)
      : _order(order),
        _projection(projection),
        _canvas(canvas),
        _samples(samples),
        _bits(picture.image.bits()),
        _stride(static_cast<std::size_t>(picture.image.bytesPerLine())),
        _values(picture.values),
        _width(picture.image.width()),
        _height(picture.image.height()) {}

  void paintLine(int y) {
    if (_order.cancelled && *_order.cancelled) {
      return;
    }
    auto* const line = reinterpret_cast<QRgb*>(_bits + static_cast<std::size_t>(y) * _stride);
    for (int x = 0; x < _width; ++x) {
      line[x] = onScreen(pixel(x, y), x, y);
    }
  }

 private:
  Light pixel(int x, int y) {
    Light sum{};
    float shown = std::numeric_limits<float>::quiet_NaN();
    int misses = 0;
    Openness open;
    for (int sample = 0; sample < _samples * _samples; ++sample) {
      const int sampleX = x * _samples + sample % _samples;
      const int sampleY = y * _samples + sample / _samples;
      if (!_order.model || _canvas.triangleAt(sampleX, sampleY) == Canvas::nothing) {
        ++misses;
        continue;
      }
      add(sum, surface(sampleX, sampleY, shown), opennessAt(sampleX, sampleY, open));
    }
    if (misses > 0) {
      add(sum, background(x, y), static_cast<float>(misses));
    }
    _values[index(x, y)] = shown;
    const auto all = static_cast<float>(_samples * _samples);
    return {sum[0] / all, sum[1] / all, sum[2] / all};
  }

  /// How open a place is to the light. Samples of one pixel at one depth share it, as computing it
  /// costs more than all else.
  struct Openness {
    float nearness = 0;
    float value = 1;
  };

  float opennessAt(int x, int y, Openness& last) const {
    const float nearness = _canvas.nearnessAt(x, y);
    constexpr float sameDepth = 0.01F;
    if (_order.thorough && std::abs(nearness - last.nearness) > sameDepth * nearness) {
      const float reach = 0.045F * static_cast<float>(std::min(_canvas.width(), _canvas.height()));
      last = {nearness, openness(_canvas, x, y, _projection.focal, reach)};
    }
    return last.value;
  }

  Light surface(int x, int y, float& shown) const {
    const Model& model = *_order.model;
    const Hit hit = _canvas.hitAt(model, x, y);
    Vector normal;
    shown = 0;
    for (std::size_t i = 0; i < 3; ++i) {
      const std::uint32_t corner = (*hit.corners)[i];
      const float share = hit.shares[i];
      const Vector& at = model.normals[corner];
      normal = {normal.x + at.x * share, normal.y + at.y * share, normal.z + at.z * share};
      shown += model.values[corner] * share;
    }
    const Light paint = hit.back ? paintOfBacks() : lightOf(shown / _order.range);
    return shaded(towardsEye(_projection.turned(normal), hit.back), paint);
  }

  /// A normal of length 1 that points towards the eye: near an outline, a smoothed one may not.
  static Vector towardsEye(Vector normal, bool back) {
    const float sign = back ? -1.0F : 1.0F;
    normal = {sign * normal.x, sign * normal.y, std::max(sign * normal.z, 0.0F)};
    const float length = std::sqrt(dot(normal, normal));
    if (!(length > 0)) {
      return {0, 0, 1};
    }
    return {normal.x / length, normal.y / length, normal.z / length};
  }

  Light background(int x, int y) const {
    return backgroundAt((static_cast<float>(x) + 0.5F) / static_cast<float>(_width),
                        (static_cast<float>(y) + 0.5F) / static_cast<float>(_height));
  }

  /// The pixel for a light, with a fine pattern, without which the steps of the background would be
  /// seen as rings.
  static QRgb onScreen(const Light& light, int x, int y) {
    static constexpr float pattern[4][4] = {{-0.47F, 0.03F, -0.34F, 0.16F},
                                            {0.28F, -0.22F, 0.41F, -0.09F},
                                            {-0.28F, 0.22F, -0.41F, 0.09F},
                                            {0.47F, -0.03F, 0.34F, -0.16F}};
    const float shift = pattern[y % 4][x % 4];
    return qRgb(screenLevel(light[0], shift), screenLevel(light[1], shift),
                screenLevel(light[2], shift));
  }

  static void add(Light& sum, const Light& light, float weight) {
    for (std::size_t i = 0; i < sum.size(); ++i) {
      sum[i] += light[i] * weight;
    }
  }

  std::size_t index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(_width) +
           static_cast<std::size_t>(x);
  }

  const Order& _order;
  const Projection& _projection;
  const Canvas& _canvas;
  const int _samples;
  uchar* const _bits;
  const std::size_t _stride;
  std::vector<float>& _values;
  const int _width;
  const int _height;
};

Picture blank(const QSize& size) {
  Picture picture;
  picture.image = QImage(size.expandedTo({1, 1}), QImage::Format_RGB32);
  picture.values.resize(static_cast<std::size_t>(picture.image.width()) *
                        static_cast<std::size_t>(picture.image.height()));
  return picture;
}

}  // namespace

Picture Renderer::draw(const Order& order) {
  QElapsedTimer watch;
  watch.start();
  const int coarseness = order.thorough ? 1 : std::max(1, order.coarseness);
  const int samples = order.thorough ? 2 : 1;
  Picture picture = blank(order.size / coarseness);
  const QSize sampled = picture.image.size() * samples;
  const double scale = static_cast<double>(samples) / coarseness;
  const Projection projection =
      order.camera.projection(QSizeF(order.size) * scale, order.middle * scale);
  if (order.model) {
    _canvas.draw(*order.model, projection, sampled.width(), sampled.height(), _crew,
                 order.cancelled);
  }
  Painter painter(order, projection, _canvas, samples, picture);
  // The parts take lines in turn, as those that cost most lie together.
  _crew.share([&](unsigned part) {
    for (int y = static_cast<int>(part); y < picture.image.height();
         y += static_cast<int>(_crew.size())) {
      painter.paintLine(y);
    }
  });
  picture.thorough = order.thorough;
  picture.number = order.number;
  picture.milliseconds = static_cast<int>(watch.elapsed());
  return picture;
}

}  // namespace Viewer
