// The examples of headers that are functions, called; all of them are compiled beside this file.
#include "headers/given.h"
#include "support/Support.h"

#include <kyr/jobs/KyrProgress.h>
#include <kyr/jobs/KyrStopToken.h>

double point = 0;
std::vector<double> points;
int width = 0;
char room[1000];
QString name;
Kyr::StructVector<unsigned char> packed;
std::istream& in = std::cin;
std::FILE* stream = nullptr;

// As the examples of the headers declare them.
namespace in_KyrInterruptWatch {
int run();
}
namespace in_KyrParallel {
void readInParallel(const std::vector<QString>& names, std::vector<double>& results);
}
namespace in_KyrProgressScope {
void readAndMeasure(const std::vector<QString>& names);
void readHalves(const std::vector<QString>& one, const std::vector<QString>& other);
}  // namespace in_KyrProgressScope
namespace in_KyrStopToken {
bool sumForAMoment(const std::vector<std::size_t>& numbers, std::size_t& total);
}
namespace in_KyrTerminalProgress {
void convertAll(const std::vector<QString>& names);
}

namespace {

std::string happened;

}  // namespace

void save(const char* /*bytes*/, std::streamsize /*count*/) {}
void work() {
  in_KyrTerminalProgress::convertAll({"good", "bad", "good"});
  Kyr::StopToken::ofProgress().stop();
  Kyr::throwIfStopped();
}
void readOne(const QString& one) {
  happened += one.toStdString() + std::to_string(Kyr::Progress::getOverallProgress()) + ' ';
}
void measure() {
  readOne("measure");
}
bool convert(const QString& one) {
  return one != "bad";
}
double lengthIn(const QString& one) {
  return static_cast<double>(one.size());
}
void sortByName(const std::vector<QString>& /*names*/) {}
void sortByLength(std::vector<double>& lengths) {
  std::sort(lengths.begin(), lengths.end());
}
void greyOutTheButton() {
  happened += "grey ";
}
void whenPressed(const std::function<void()>& /*action*/) {}

TEST(HeaderExamples, DoWhatTheySay) {
  in_KyrProgressScope::readAndMeasure({"a", "b"});
  EXPECT_EQ(happened, "a0 b45 measure90 ");
  in_KyrProgressScope::readHalves({}, {"c"});
  std::vector<double> lengths(2);
  in_KyrParallel::readInParallel({"dd", "e"}, lengths);
  EXPECT_EQ(lengths, std::vector<double>({1, 2}));
  EXPECT_EQ(Kyr::Progress::getOverallProgress(), 100);
  std::size_t total = 0;
  EXPECT_TRUE(in_KyrStopToken::sumForAMoment({1, 2}, total));
  EXPECT_EQ(total, 3U);
  testing::internal::CaptureStderr();
  EXPECT_EQ(in_KyrInterruptWatch::run(), 130) << "the work stops itself";
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "bad: cannot be read\n");
  happened.clear();
  EXPECT_FALSE(in_KyrStopToken::sumForAMoment({1, 2}, total)) << "stopped from outside";
  EXPECT_EQ(happened, "grey ");
}
