/// \file
/// Draws a model: a rasteriser without any graphics hardware.
#pragma once

#include "camera.h"
#include "canvas.h"
#include "crew.h"
#include "model.h"

#include <QImage>

#include <atomic>
#include <memory>
#include <vector>

namespace Viewer {

/// What is to be drawn, and how.
struct Order {
  std::shared_ptr<const Model> model;  ///< null for the background alone
  Camera camera;
  QSize size;            ///< of the picture in pixels
  QPointF middle;        ///< where the camera's target is to be seen, in pixels
  float range = 1;       ///< the value that gets the last colour, above 0
  bool thorough = true;  ///< four samples for each pixel and shadows in hollows
  int coarseness = 1;    ///< drawn with pixels this much larger, when not thorough
  unsigned number = 0;   ///< the picture carries it as well
  const std::atomic<bool>* cancelled = nullptr;  ///< once true, the picture may stay unfinished
};

/// A drawn picture.
struct Picture {
  QImage image;
  std::vector<float> values;  ///< row by row what each pixel shows; no number where nothing
  int milliseconds = 0;       ///< what drawing took
  bool thorough = false;
  unsigned number = 0;
};

/// Draws pictures one after the other and keeps its buffers for the next.
class Renderer {
 public:
  /// Draws every triangle that lies in front of the eye; the nearest wins in each pixel.
  /// \threadsafety one caller at a time
  Picture draw(const Order& order);

 private:
  Crew _crew;
  Canvas _canvas;
};

}  // namespace Viewer
