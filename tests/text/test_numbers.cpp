#include <kyr/text/KyrParse.h>
#include <kyr/text/KyrString.h>

#include "support/Shared.h"

#include <climits>

using Kyr::KString;

namespace {

template <class To, class From>
To bitCast(From from) {
  To to;
  std::memcpy(&to, &from, sizeof(to));
  return to;
}

std::uint64_t bitsOf(double value) {
  return bitCast<std::uint64_t>(value);
}

/// What printf says of a number. Not every C library tells the sign of what is no number, so that
/// is written here.
std::string formatByC(double value, char format, int precision) {
  if (std::isnan(value)) {
    const std::string sign = std::signbit(value) ? "-" : "";
    return sign + (format < 'a' ? "NAN" : "nan");
  }
  std::array<char, 512> text;
  const std::string pattern = {'%', '.', '*', format};
  std::snprintf(text.data(), text.size(), pattern.c_str(), precision, value);
  return text.data();
}

TEST(Numbers, FormatDetails) {
  struct {
    KString text;
    std::string expected;
    const char* fault;
  } const rows[] = {
      {KString::number(1.25, 'x', 1), "1.2", "another letter is 'f'"},
      {KString::number(0.1, 'f', 1000).right(3), "000", "precision stops at 99"},
      {KString::number(255, 1), "255", "bases from 2 on"},
      {KString::number(35, 36) + KString::number(35, 37), "z35", "bases up to 36"},
      {KString::number(INT_MIN) + KString::number(UINT_MAX), "-21474836484294967295", "ten digits"},
      {KString::number(0) + KString::number(-99999999) + KString::number(100000000),
       "0-99999999100000000", "digits before the last eight"},
      {KString::number(INT64_MIN), "-9223372036854775808", "negation overflows"},
      {KString::number(INT64_MIN, 2), "-1" + std::string(63, '0'), "the buffer is short"},
      {KString::number(UINT64_MAX), "18446744073709551615", "read as signed"},
      {KString().setNum(short(-7)).setNum(0.1F), "0.1", "content is kept"},
      {KString().setNum(static_cast<unsigned short>(65535), 16), "ffff", "sign extension"},
  };
  for (const auto& [text, expected, fault] : rows) {
    EXPECT_EQ(text, expected) << fault;
  }
}

/// Expects of all parsers that they read a number at the front of a text.
void expectAll(const std::string& text, double value, std::size_t length) {
  const bool whole = text.find_first_not_of(" \t", length) == std::string::npos;
  const auto wide = QString::fromStdString(text);
  bool ok = false;
  unsigned end = 0;
  int wideEnd = 0;
  ASSERT_EQ(bitsOf(KString(text).toDouble(&ok, &end)), bitsOf(value)) << text;
  ASSERT_TRUE(ok == (length > 0) && end == length) << text << " ends at " << end;
  ASSERT_EQ(bitsOf(Kyr::qstringToDouble(wide, &ok, &wideEnd)), bitsOf(value)) << text;
  ASSERT_TRUE(ok == (length > 0) && wideEnd == int(length)) << text << " ends at " << wideEnd;
  ASSERT_EQ(bitsOf(KString(text).toDouble(&ok)), bitsOf(whole ? value : 0)) << text;
  ASSERT_EQ(ok, whole) << text;
  ASSERT_EQ(bitsOf(Kyr::qstringToDouble(wide, &ok)), bitsOf(whole ? value : 0)) << text;
  ASSERT_EQ(ok, whole) << text;
}

TEST(Numbers, OfAnyBitsAreThoseOfTheCLibrary) {
  std::mt19937_64 random(20260);
  for (int i = 0; i < 20000 && !HasFatalFailure(); ++i) {
    const auto bits = random();
    const double special[] = {0.0, -0.0, HUGE_VAL, -HUGE_VAL, 99999.95, 1e22};
    const double values[] = {bitCast<double>(bits), bitCast<double>(bits >> (12 + i % 50)),
                             std::ldexp(double(bits % (1U << 20U)) - 1000, -(i % 24)),
                             double(bits % 2000000) / 1000 - 1000, special[i % 6]};
    const double value = values[random() % 5];
    const char format = "fFeEgG"[random() % 6];
    const auto precision = static_cast<int>(random() % (i % 2 == 0 ? 18 : 101)) - 1;
    ASSERT_EQ(KString::number(value, format, precision),
              formatByC(value, format, std::min(precision, 99)));
    const std::string text = formatByC(value, "ga"[i % 2], i % 2 == 0 ? 17 : 20);
    if (std::isfinite(value)) {
      expectAll(text + (i % 3 == 0 ? "x" : ""), value, text.size());
    }
  }
}

TEST(Numbers, ParseAsStrtod) {
  struct {
    const char* text;
    double value;
    std::size_t length;
  } const rows[] = {
      // clang-format off
      {"+", 0, 0}, {"-", 0, 0}, {".", 0, 0}, {"-.", 0, 0}, {"e5", 0, 0}, {".e1", 0, 0}, {"", 0, 0},
      {" ", 0, 0}, {"\n", 0, 0}, {"na", 0, 0}, {"+-1", 0, 0}, {"0x", 0, 1}, {"0x.", 0, 1},
      {"0x.p1", 0, 1}, {"0x1p", 1, 3}, {"0x1p+", 1, 3}, {"-0X1.8P3z", -12, 8},
      {"0x1fffffffffffff8p0", 0x1fffffffffffff8p0, 19}, {"+1", 1, 2}, {"1e", 1, 1}, {"1e+", 1, 1},
      {"1e5e5", 1e5, 3}, {"1.5.5", 1.5, 3}, {".5", 0.5, 2}, {"5.", 5, 2}, {"-0", -0.0, 2},
      {"0e99999999999999999999", 0, 22}, {"1e99999999999999999999", HUGE_VAL, 22},
      {"-1e-99999999999999999999", -0.0, 24}, {"1e308", 1e308, 5}, {"1.8e308", HUGE_VAL, 7},
      {"2.2250738585072011e-308", 2.2250738585072011e-308, 23}, {"4.9e-324", 4.9e-324, 8},
      {"2.4e-324", 0, 8}, {"infinit", HUGE_VAL, 3}, {"-INFINITYx", -HUGE_VAL, 9},
      {"nan(", std::nan(""), 3}, {"9007199254740993", 9007199254740992., 16},
      {"9007199254740993.0000000000000000000000000000001", 9007199254740994., 48},
      {"9007199254740992e22", 9007199254740992e22, 19}, {"1,5", 1, 1}, {"1e-22", 1e-22, 5},
      {"1e23", 1e23, 4}, {"123456789012345678901234567890", 123456789012345678901234567890., 30},
      {"0000000000000000000000001", 1, 25}, {"\v\f\r\n\t 1", 1, 7}, {"1 2", 1, 1},
      // clang-format on
  };
  for (const auto& [text, value, length] : rows) {
    expectAll(text, value, length);
  }
  expectAll(std::string(1000000, '7'), HUGE_VAL, 1000000);
}

/// Where the C libraries differ, the library means the same on all platforms.
TEST(Numbers, ParseWhatPlatformsReadDifferently) {
  const auto nan = [](std::uint64_t bits) { return bitCast<double>(bits); };
  expectAll("nan(12)", nan(0x7ff800000000000c), 7);
  expectAll("-nan(0x1F)x", nan(0xfff800000000001f), 10);
  expectAll("nan(a_b)x", nan(0x7ff8000000000000), 8);
  expectAll("nan(a-b)", nan(0x7ff8000000000000), 3);
  expectAll("-0." + std::string(1000000, '0') + "1e1000001", -1.0, 1000012);
}

TEST(Numbers, ParseFloatingDetails) {
  bool ok = false;
  int end = -1;
  EXPECT_TRUE(Kyr::qstringToDouble("", &ok) == 0 && ok) << "an empty text is 0 on purpose";
  EXPECT_TRUE(Kyr::qstringToDouble(QString::fromUtf8("2\u00a0"), &ok) == 0 && !ok) << "no blank";
  EXPECT_EQ(Kyr::qstringToDouble(QString::fromUtf8(" 2\u0663"), &ok, &end), 2);
  EXPECT_EQ(end, 2) << "digits of other scripts belong to integers only";
  EXPECT_EQ(KString("00000000002403593112448452e11").toDouble(), 2403593112448452e11)
      << "a product that wide registers round twice";
  EXPECT_TRUE(Kyr::qstringToFloat("1e300", &ok) == HUGE_VALF && ok) << "too large a float";
  EXPECT_EQ(KString("1\0002", 3).toDouble() + KString("1\0002", 3).toInt(), 0) << "zero byte";
}

constexpr std::nullopt_t Fails = std::nullopt;

TEST(Numbers, Integers) {
  struct {
    QString text;
    int base;
    std::optional<long long> expected;
    int end;  ///< -1 where none is stored; none is asked for unless asksEnd
    bool asksEnd;
    const char* strings;  ///< K the 8-bit string, Q Qt's
    const char* fault;
  } const rows[] = {
      {" -12\t ", 10, -12, -1, false, "KQ", "blanks around are allowed"},
      {"12a", 10, Fails, -1, false, "KQ", "trailing text is refused without an end index"},
      {" 12a", 10, 12, 3, true, "KQ", "the end index counts blanks, and allows trailing text"},
      {"fg", 16, 15, 1, true, "KQ", "letters of a smaller base only"},
      {"12", 37, 12, -1, false, "KQ", "base 37 is 10"},
      {"", 10, Fails, -1, true, "KQ", "nothing"},
      {"-", 10, Fails, -1, false, "KQ", "nothing behind a sign"},
      {"9223372036854775807", 10, INT64_MAX, -1, false, "KQ", "largest"},
      {"9223372036854775808", 10, Fails, -1, true, "KQ", "too large by one"},
      {"-9223372036854775808", 10, INT64_MIN, 20, true, "KQ", "smallest"},
      {"99999999999999999999", 10, Fails, -1, false, "KQ", "wraps around 64 bits"},
      {"-8000000000000000", 16, INT64_MIN, -1, false, "K", "smallest in base 16"},
      {"-8000000000000000", 16, Fails, -1, false, "Q", "which this parser refuses"},
      {"7\n", 10, Fails, -1, false, "K", "only blanks and tabs may follow"},
      {QString::fromUtf8("\u20037\u2003"), 10, 7, -1, false, "Q", "Unicode white space"},
      {QString::fromUtf8("\u0661\u0662x"), 10, 12, 2, true, "Q", "Arabic-Indic digits"},
      {QString::fromUtf8("\u0669"), 8, Fails, -1, false, "Q", "such a digit beyond the base"},
      {"fF", 16, 255, -1, false, "Q", "capital letters"},
      {"fF", 16, 15, 1, true, "K", "no capital letters"},
      {"1:", 10, 1, 1, true, "Q", "a colon is no digit here"},
      {"1:", 10, 20, -1, false, "K", "the byte behind the last digit counts as a digit"},
      {"12", 2, 4, -1, false, "K", "and does so in other bases"},
      {"13", 2, 1, 1, true, "K", "but not the next one"},
  };
  for (const auto& row : rows) {
    const auto expect = [&row](char string, auto end, auto parse) {
      bool ok = !row.expected;
      const auto value = parse(row.text, &ok, row.base, row.asksEnd ? &end : nullptr);
      if (std::strchr(row.strings, string) != nullptr) {
        EXPECT_TRUE(value == row.expected.value_or(0) && ok == row.expected.has_value() &&
                    static_cast<int>(end) == row.end)
            << string << qPrintable(row.text) << ": " << row.fault;
      }
    };
    expect('Q', -1, Kyr::qstringToInt64);
    expect('K', ~0U, [](const QString& text, bool* ok, int base, unsigned* end) {
      return KString(text.toStdString()).toInt64(ok, base, end);
    });
  }
}

TEST(Numbers, RangesOfTheTypes) {
  struct {
    const char* text;
    unsigned long long value;
    const char* types;  ///< that hold it: s short, S unsigned short, i int, I unsigned, L 64 bits
    const char* fault;
  } const rows[] = {
      {"32767", 32767, "sSiIL", "a short's largest"},
      {"32768", 32768, "SiIL", "beyond a short"},
      {"-32768", 0ULL - 32768, "si", "a short's smallest"},
      {"-2147483648", 0ULL - 2147483648, "i", "an int's smallest"},
      {"4294967295", 4294967295, "IL", "an unsigned's largest"},
      {"4294967296", 4294967296, "L", "beyond an unsigned"},
      {"+18446744073709551615", 18446744073709551615U, "L", "64 bits, and the plus sign"},
      {"18446744073709551616", 0, "", "beyond 64 bits"},
  };
  for (const auto& row : rows) {
    const auto expect = [&row](char type, auto parse) {
      bool ok = false;
      const auto value = parse(&ok);
      EXPECT_EQ(ok, std::strchr(row.types, type) != nullptr) << row.text << ": " << row.fault;
      EXPECT_EQ(value, static_cast<decltype(value)>(ok ? row.value : 0)) << row.fault;
    };
    const KString text = row.text;
    const QString wide = row.text;
    expect('s', [&](bool* ok) { return text.toShort(ok); });
    expect('s', [&](bool* ok) { return Kyr::qstringToShort(wide, ok); });
    expect('S', [&](bool* ok) { return text.toUShort(ok); });
    expect('S', [&](bool* ok) { return Kyr::qstringToUShort(wide, ok); });
    expect('i', [&](bool* ok) { return text.toInt(ok); });
    expect('i', [&](bool* ok) { return Kyr::qstringToInt(wide, ok); });
    expect('I', [&](bool* ok) { return text.toUInt(ok); });
    expect('I', [&](bool* ok) { return Kyr::qstringToUInt(wide, ok); });
    expect('L', [&](bool* ok) { return text.toUInt64(ok); });
    expect('L', [&](bool* ok) { return Kyr::qstringToUInt64(wide, ok); });
  }
  bool ok = true;
  int end = 0;
  EXPECT_TRUE(Kyr::qstringToInt("4294967297 x", &ok, 10, &end) == 0 && !ok && end == 10)
      << "the end index is stored even for what is out of range";
  EXPECT_FALSE((Kyr::qstringToUInt64("-0", &ok), ok)) << "the unsigned parser takes no minus";
  EXPECT_TRUE(KString("-0").toUInt64(&ok) == 0 && ok) << "this one takes any sign";
}

TEST(Numbers, AreExpectedOrRefusedWithTheirPlace) {
  const auto text = [](const char* bytes) { return QString::fromUtf8(bytes); };
  const auto integer = [](const QString& given) { return QString::number(Kyr::expectInt(given)); };
  const auto unsignedInteger = [](const QString& given) {
    return QString::number(Kyr::expectUInt(given));
  };
  const auto wide = [](const QString& given) {
    return QString::number(Kyr::expectInt64(given, 36));
  };
  const auto unsignedWide = [](const QString& given) {
    return QString::number(Kyr::expectUInt64(given));
  };
  const auto number = [](const QString& given) {
    return QString::number(Kyr::expectDouble(given), 'g', 17);
  };
  const auto narrow = [](const QString& given) {
    return QString::number(double(Kyr::expectFloat(given)), 'g', 17);
  };
  const struct {
    QString (*expect)(const QString&);
    QString given;
    QString result;  ///< the number, or the message
    const char* fault;
  } rows[] = {
      {integer, " -12 ", "-12", "blanks may stand around it"},
      {integer, "", "column 1: a value is missing", "nothing passes for 0"},
      {integer, " + ", "column 3: \"+\" is no integer", "a sign without digits"},
      {integer, text("😀"), text("column 1: \"😀\" is no integer"), "half a character is shown"},
      {integer, " 12a4", "column 4: \"12a4\" is no integer", "the place is that of the letter"},
      {integer, "1 2", "column 3: \"1 2\" is no integer", "a second number"},
      {integer, " 2147483648", "column 2: \"2147483648\" is not within -2147483648 ... 2147483647",
       "out of range is no wrong digit"},
      {unsignedInteger, "-1", "column 1: \"-1\" is not within 0 ... 4294967295",
       "a sign is dropped"},
      {wide, "-zz", "-1295", "the base is passed on"},
      {wide, text("zß"), text("column 2: \"zß\" is no integer"), "letters are digits"},
      {unsignedWide, "18446744073709551616",
       "column 1: \"18446744073709551616\" is not within 0 ... 18446744073709551615", "64 bits"},
      {number, "1e400", "inf", "what strtod takes"},
      {number, "1,5", "column 2: \"1,5\" is no number", "the comma is no point"},
      {number, " ", "column 2: a value is missing", "blanks pass for 0.0"},
      {narrow, "0.1", "0.10000000149011612", "rounded"},
      {narrow, " 4e38", "column 2: \"4e38\" is not within -3.4028235e+38 ... 3.4028235e+38",
       "made infinite"},
      {narrow, "-inf", "-inf", "infinity that was written"},
  };
  const KyrTest::ScopedLocale german("de_DE.UTF-8");
  for (const auto& row : rows) {
    QString result;
    try {
      result = row.expect(row.given);
    } catch (const Kyr::FileParse::Error& error) {
      result = error.getText();
      EXPECT_EQ(result.indexOf(error.getPlace().toText() + ": "), 0);
    }
    EXPECT_EQ(result.toStdString(), row.result.toStdString()) << row.fault;
  }
}

TEST(Numbers, SameUnderEveryLocale) {
  const KyrTest::Program program;
  const KyrTest::ScopedLocale german("de_DE.UTF-8");
  if (!german.ok() && std::getenv("KYR_REQUIRE_LOCALE") == nullptr) {
    GTEST_SKIP() << "the locale de_DE.UTF-8 is missing";
  }
  ASSERT_TRUE(german.ok()) << "the locale de_DE.UTF-8 is missing";
  ASSERT_EQ(formatByC(1.5, 'g', 6), "1,5") << "the C library still speaks English";
  EXPECT_EQ(KString::number(1.5) + KString("%1").arg(1e300, 0, 'f', 0).left(2), "1.510");
  bool ok = false;
  for (const char* text : {"1.5", "0x1.8", "15e-1", "1.50000000000000000000000000000000001"}) {
    EXPECT_TRUE(KString(text).toDouble(&ok) == 1.5 && ok) << text;
    EXPECT_TRUE(Kyr::qstringToDouble(text, &ok) == 1.5 && ok) << text;
  }
  EXPECT_TRUE(KString("1,5").toDouble(&ok) == 0 && !ok) << "the comma ends a number";
  EXPECT_EQ(Kyr::tokenize("\xe4", false), "\\xe4") << "isprint of the locale";
}

}  // namespace
