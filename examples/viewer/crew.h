/// \file
/// Threads that share each piece of work among them.
#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace Viewer {

class Hand;

/// As many threads as there are processors, for work in equal parts: the one that shares its work,
/// and others that sleep meanwhile.
class Crew {
 public:
  /// \param size how many threads; 0 for one for each processor, 256 at most. Fewer when the system
  ///        has no more
  explicit Crew(unsigned size = 0);
  ~Crew();
  Crew(const Crew&) = delete;
  Crew& operator=(const Crew&) = delete;

  unsigned size() const { return 1 + static_cast<unsigned>(_hands.size()); }

  /// Calls \a work for each part at the same time and returns when all are done.
  /// \param work gets the number of the part, from 0 to size() - 1; must not throw
  /// \threadsafety one caller at a time
  void share(const std::function<void(unsigned part)>& work);

  /// Shares the numbers from 0 to \a count in parts one after the other.
  /// \param work gets the first number of the part and the one behind its last
  void shareRange(std::size_t count,
                  const std::function<void(std::size_t begin, std::size_t end)>& work);

 private:
  std::vector<std::unique_ptr<Hand>> _hands;
};

}  // namespace Viewer
