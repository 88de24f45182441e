/// \file
/// The thread that draws pictures.
#pragma once

#include "render.h"

#include <kyr/jobs/KyrThreadPool.h>

#include <atomic>
#include <functional>
#include <memory>

namespace Viewer {

/// Draws one picture in each pass of work. Where the system has started no thread for it, begin()
/// draws, and returns late.
class Artist : public Kyr::PoolThread {
 public:
  /// \param deliver called on the thread that draws with each picture that was not cancelled
  explicit Artist(std::function<void(std::shared_ptr<Picture>)> deliver);
  ~Artist() override;

  /// Begins a picture; the one before it must have been delivered or cancelled.
  void begin(const Order& order);
  /// Gives up the picture in work, if there is one; returns when nothing is in work any more.
  /// It may have been delivered before.
  void cancel();

 protected:
  void work() override;

 private:
  const std::function<void(std::shared_ptr<Picture>)> _deliver;
  Renderer _renderer;
  Order _order;
  std::atomic<bool> _cancelled{false};
};

}  // namespace Viewer
