/// \file
/// The temporary files that this process is writing, for the case that it ends in the middle.
#pragma once

#include <atomic>
#include <filesystem>

namespace Kyr {

/// Names a temporary file from before it is made until it is put in its place or removed.
class LiveFile {
 public:
  /// \param name must outlive this object
  explicit LiveFile(const std::filesystem::path& name);
  ~LiveFile();
  LiveFile(const LiveFile&) = delete;
  LiveFile& operator=(const LiveFile&) = delete;

  /// To be called when the file has been made, or could not be.
  void tried() noexcept { _isTried = true; }

  /// Removes all of them, whoever is writing them. From here on whoever wants to make another one
  /// waits for the end of the process; who is just making one gets a tenth of a second for it.
  static void removeAllForEnd() noexcept;
  /// Does not return where they were removed so: what fails then, fails because of that.
  static void stayIfEnding();

 private:
  const std::filesystem::path& _name;
  LiveFile* _next = nullptr;
  std::atomic<bool> _isTried{false};
};

}  // namespace Kyr
