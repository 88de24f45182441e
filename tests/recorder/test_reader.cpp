// What a reader finds that is as fast as those who write.
#include "Writers.h"

#include <kyr/recorder/recorder_p.h>

namespace {

using namespace KyrTest;
namespace Recorder = Kyr::Recorder;

bool isWhole(const Recorder::Entry& entry) {
  const std::string text(entry.text());
  const std::size_t letters = text.find_first_not_of("0123456789");
  return entry.source() == "writer" && letters != std::string::npos && letters > 0 &&
         text.find_first_not_of(text[letters], letters) == std::string::npos &&
         text.size() - letters == std::stoul(text);
}

TEST(FlightReader, LeavesOutWhatIsReplacedMeanwhile) {
  std::size_t seen = 0;
  const Writers writers(2);
  for (int i = 0; i < 5000; ++i) {
    Recorder::Reader reader;
    Recorder::Entry entry;
    while (reader.next(entry)) {
      ASSERT_TRUE(isWhole(entry)) << entry.text();
      ++seen;
    }
  }
  EXPECT_GT(seen, 10000U);
}

}  // namespace
