#include <kyr/text/KyrBase64.h>
#include <kyr/text/KyrCRC16.h>

#include "support/Support.h"

using namespace Kyr;

namespace {

using KyrTest::Bytes;

static_assert(!std::is_default_constructible_v<Base64> && !std::is_default_constructible_v<CRC16>);

Bytes bytes(const std::string& text) {
  return KyrTest::bytesOf(QByteArray::fromStdString(text));
}
std::string text(const Bytes& bytes) {
  return {bytes.begin(), bytes.end()};
}

TEST(Base64, Texts) {
  const std::tuple<std::string, const char*, const char*> rows[] = {
      {"", "", "nothing"},
      {"f", "Zg==", "one byte"},
      {"fo", "Zm8=", "two bytes"},
      {"foo", "Zm9v", "three bytes"},
      {"foobarfo", "Zm9vYmFyZm8=", "a whole step with a rest"},
      {"\xff\xef\xbe\xfb\xef\xbe\xfb\xff\xfe", "/++++++++//+", "the last letters"},
  };
  for (const auto& [plain, encoded, fault] : rows) {
    // Into themselves: what is there stays, and is read where it moves to.
    Bytes both = bytes(plain);
    Base64::encode(both, &both);
    EXPECT_EQ(text(both), plain + encoded) << fault;
    both = bytes(encoded);
    Base64::decode(both, &both);
    EXPECT_EQ(text(both), encoded + plain) << fault;
    EXPECT_EQ(Base64::encode(QByteArray::fromStdString(plain)), encoded) << fault;
    EXPECT_EQ(Base64::decode(QByteArray(encoded)).toStdString(), plain) << fault;
  }
}

TEST(Base64, DamagedTexts) {
  const std::tuple<std::string, std::string, const char*> rows[] = {
      {"Zg", "f", "a short group"},
      {"Zm9vZ", "food", "a group of one"},
      {"====", std::string(1, '\0'), "a group of nothing yields a byte"},
      {"Zm9v\nZm9v", "foo\x01\x99\xbc", "a line feed shifts the groups"},
      {"Z=9v", "d\x0f", "padding in the middle is a zero"},
      {"Zm9v\x80m9vZm9v", "foo\x02ofoo", "a byte beyond ASCII"},
  };
  for (const auto& [encoded, plain, fault] : rows) {
    Bytes out;
    Base64::decode(bytes(encoded), &out);
    EXPECT_EQ(text(out), plain) << fault;
  }
}

TEST(CRC16, PublishedValues) {
  EXPECT_EQ(CRC16::compute(bytes("123456789")), 0x31C3);
  EXPECT_EQ(CRC16::compute(bytes("")), 0);
  EXPECT_EQ(CRC16::compute(bytes("A")), 0x58E5);
  const Bytes whole = bytes("123456789 and the length of several strides, with some more of it");
  for (std::size_t i = 0; i <= whole.size(); ++i) {
    const auto begun = CRC16::compute(whole.data(), i);
    const auto ended = CRC16::compute(whole.data() + i, whole.size() - i, begun);
    EXPECT_EQ(ended, CRC16::compute(whole)) << "in pieces, the first of " << i;
  }
}

}  // namespace
