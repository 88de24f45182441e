#include <kyr/text/KyrParse.h>
#include <kyr/text/KyrQuoting.h>
#include <kyr/text/KyrString.h>
#include <kyr/text/KyrTextCodec.h>

#include "support/Support.h"

#include <stdexcept>
#include <unordered_set>

using namespace Kyr;

namespace {

static_assert(sizeof(KString) == sizeof(std::string), "copied and deleted as its base");
static_assert(!std::is_polymorphic_v<KString>);
static_assert(std::is_convertible_v<KString, std::string>);

template <class Text>
struct RowOf {
  Text result;
  Text expected;
  const char* fault;
};
using Row = RowOf<KString>;
using WideRow = RowOf<QString>;

template <class Text, std::size_t count>
void expectAll(const RowOf<Text> (&rows)[count]) {
  for (const auto& [result, expected, fault] : rows) {
    EXPECT_EQ(result, expected) << fault;
  }
}

TEST(KStringTest, ChangingOperationsChain) {
  const std::string word = "word";
  KString text = KString(word, 1, 2) + KString("abcd", 2) + KString(2, 'z');
  EXPECT_EQ(text, "orabzz");
  text = word;
  text += std::string("A");
  text += "B";
  text += 'C';
  KString& same = text.append(word, 0, 1).append("xy", 1).append(2, '!').append(word).append("_");
  same.append(word.begin(), word.end()).insert(0, "<").insert(1, word, 0, 2).insert(0, 2, '-');
  EXPECT_EQ(text, "--<wowordABCwx!!word_word");
  EXPECT_EQ(text.erase(4).replace(0, 2, word).replace(0, 1, "WW", 1).replace(1, 1, 2, 'o').left(5),
            "Woord");
  EXPECT_EQ(text.replace(text.begin(), text.end(), word.begin(), word.end()).erase().size(), 0U);
  EXPECT_EQ(text.assign(word, 1, 2).assign(3, 'q').assign("pq", 1).assign(word).mid(1), "ord");
  EXPECT_EQ(text.assign(word, 2).append(word, 3).insert(0, word, 2).replace(0, 1, word, 3),
            "ddrdd");
  (text = "chars") = 'c';
  EXPECT_EQ(*text.erase(text.begin(), text.begin()), 'c') << "the iterator form of the base";
}

template <class... Results>
constexpr bool allChain = (std::is_same_v<Results, KString&> && ...);
template <class... Results>
constexpr bool allAreNew = (std::is_same_v<Results, KString> && ...);

TEST(KStringTest, TakesTemporariesViewsAndBraces) {
  const std::string_view view = "view";
  const KString own = "own";
  const std::string plain = "plain";
  KString text{'a', 'b'};
  EXPECT_EQ(text, "ab") << "97 times b";
  EXPECT_EQ(KString(2, 'b') + KString("cd", 1) + KString(view), "bbcview") << "counts as before";
  static_assert(
      allChain<decltype(text.assign(KString())), decltype(text.assign(std::string())),
               decltype(text.assign(view)), decltype(text.assign({'a'})), decltype(text = view),
               decltype(text += view), decltype(text += {'a'}), decltype(text.append({'a'})),
               decltype(text.insert(0, {'a'})), decltype(text.replace(0, 1, {'a'})),
               decltype(text.replace(text.begin(), text.end(), {'a'})),
               decltype(text.replace(text.begin(), text.end(), view))>);
  (text = view).append({'1', '2'}).append(view, 3).append(view, 0, 1).insert(0, view, 1, 2);
  text.insert(0, {'<', '-'}).replace(2, 2, view).replace(0, 1, view, 3);
  EXPECT_EQ(text, "w-viewview12wv");
  text += {'a', 'b'};
  EXPECT_EQ(text.assign(view, 1).insert(0, view).assign(KString("%1")).arg(1), "1");
  text = {};
  const auto place = text.insert(text.begin(), {'a', 'b'});
  EXPECT_EQ(*place, 'a') << "the iterator form of the base";
  static_assert(
      allAreNew<decltype(own + own), decltype(own + plain), decltype(plain + own),
                decltype(own + std::string()), decltype(std::string() + own),
                decltype(KString() + std::string()), decltype(std::string() + KString()),
                decltype(own + "x"), decltype("x" + own), decltype(own + 'x'), decltype('x' + own),
                decltype(KString() + KString()), decltype(view + own)>);
  static_assert(std::is_same_v<decltype(plain + plain), std::string>, "others are left alone");
  static_assert(!std::is_invocable_v<std::plus<>, KString, int>, "a number is no character");
  EXPECT_EQ(('<' + own + ' ' + plain + " %1" + view + '>').arg("x"), "<own plain xview>");
  EXPECT_EQ(text + text, "abab");
  EXPECT_EQ(std::move(text) + text.mid(0), "abab") << "the memory of the left one is used on";
  EXPECT_EQ(std::unordered_set<KString>({"a", "b", "a"}).size(), 2U);
  EXPECT_EQ(std::hash<KString>()("a"), std::hash<std::string>()("a"));
}

TEST(KStringTest, Parts) {
  const KString text = "abc";
  const Row rows[] = {
      {text.mid(1, 9), "bc", "more than there is"},
      {text.right(2), "bc", "counts from the end"},
      {text.leftJustified(5, '.', false), "abc..", "fill on the right"},
      {text.leftJustified(2, '.', true), "ab", "cut when asked"},
      {text.rightJustified(5, '.', true), "..abc", "fill on the left"},
      {text.rightJustified(2, '.', true), "ab", "keeps the front, not the end"},
  };
  expectAll(rows);
  EXPECT_THROW(text.mid(4, 0), std::out_of_range);
}

TEST(KStringTest, Placeholders) {
  const std::string_view view = "v";
  const KString many = KString("%1,%2 ") + KString(200, '%') + "%9 %1";
  const Row rows[] = {
      {KString("%1 and %1").arg("x"), "x and %1", "one argument replaces one occurrence"},
      {KString("%1 and %1").arg("x", "y"), "x and x", "several replace all of a number"},
      {KString("%2 %1").arg("a"), "%2 a", "the lowest number first"},
      {KString("%2 %1").arg("a", "b"), "b a", "in the order of the numbers, not of the text"},
      {KString("%3 %7 %3").arg("a", "b", "c"), "a b a", "gaps between numbers"},
      {KString("%4%3%2%1%0").arg("a", "b", "c", "d"), "%4dcba", "the highest stay"},
      {KString("%1 %2").arg("%2", "b"), "%2 b", "arguments are not scanned again"},
      {KString("100%").arg("x"), "100%", "a percent sign at the end"},
      {KString("%%1%").arg("x"), "%x%", "percent signs side by side"},
      {KString().arg("x") + KString().arg("x", "y"), "", "an empty string"},
      {KString("%").arg("x") + KString("a").arg("x", "y"), "%a", "a single byte"},
      {many.arg("", "b", "c"), ",b " + std::string(200, '%') + "c ", "an empty argument"},
      {KString("%1%2").arg("7", 3, '0').arg("7", -3, '0'), "007700", "padding on the other side"},
      {KString("[%1]").arg("long", 3) + KString("%1").arg("long", -3), "[long]long", "cut"},
      {KString("%1%2").arg('c', 2).arg('d'), " cd", "a character is no number"},
      {KString("%1 %2 %3").arg(-255, 6, 16).arg(7U).arg(short(-1), -3), "   -ff 7 -1 ", "numbers"},
      {KString("%1 %2").arg(~0ULL).arg(-1LL), "18446744073709551615 -1", "64 bits"},
      {KString("%1|%2").arg(0.5, 6, 'f', 2).arg(1e10), "  0.50|1e+10", "floating point"},
      {KString("%1%1%2%3").arg(view).arg(view, 3).arg(view, -3, '_').arg(view), "v  vv__v",
       "views"},
      {KString("%3%2%1%1").arg(view, "b", KString("c")).arg(view, view), "cbvv", "mixed views"},
  };
  expectAll(rows);
}

TEST(KStringTest, Tokens) {
  const std::tuple<KString, bool, KString, const char*> rows[] = {
      {"", true, "\\", "an empty field must show"},
      {"", false, "", "only when asked"},
      {"a b", true, "a\\_b", "blanks"},
      {"\a\b\t\n\v\f\r\\", true, "\\a\\b\\t\\n\\v\\f\\r\\\\", "letters in wrong order"},
      {KString("\0\x01\x7f\x80\xe4\xff", 6), true, "\\x00\\x01\\x7f\\x80\\xe4\\xff", "sign"},
      {"~!\"'", true, "~!\"'", "printable bytes stand for themselves"},
  };
  for (const auto& [bytes, markEmpty, token, fault] : rows) {
    EXPECT_EQ(tokenize(bytes, markEmpty), token) << fault;
    EXPECT_EQ(untokenize(token, markEmpty), bytes) << fault;
  }
  for (const std::size_t before : {4093, 4094, 4095, 4096}) {
    const KString bytes = KString(before, 'a') + "\n\\b";
    EXPECT_EQ(untokenize(tokenize(bytes)), bytes) << "an escape at the end of a piece";
  }
  EXPECT_EQ(tokenize("") + untokenize("\\"), "\\") << "marks empty fields unless asked not to";
}

TEST(KStringTest, DamagedTokens) {
  const Row rows[] = {
      {untokenize("\\", false), "", "a lone backslash is dropped"},
      {untokenize("\\q\\ \\%b", true), "b", "unknown escapes are dropped"},
      {untokenize("\\xzz!", true), std::string("\0!", 2), "bad digits are a zero byte"},
      {untokenize("\\x4A\\xA4", true), std::string(2, '\0'), "capital digits are bad"},
      {untokenize("\\x4", true), "\\x4", "too few digits stay as they are"},
      {untokenize("\\x\\n", true), std::string(1, '\0'), "the two bytes are taken"},
      {untokenize("\\x-1\\x 7\\x+7\\x7 ", true), "\xff\x07\x07\x07", "read as any number"},
  };
  expectAll(rows);
}

TEST(TextCodec, MarkerLines) {
  constexpr auto Untouched = static_cast<TextCodec_t>(7);
  const std::tuple<const char*, TextCodec_t, const char*> rows[] = {
      {"# <defaultcodec>utf-8</defaultcodec>\n", CodecUtf8, "as it is written"},
      {"# <defaultcodec>iso8859-1</defaultcodec>", CodecLatin1, "as it is written"},
      {"<defaultcodec>latin", Untouched, "an unknown codec"},
      {"<defaultcodec> iso8859-1 utf-8", CodecUtf8, "UTF-8 wins"},
      {"utf-8 <defaultcodec>", CodecUtf8, "the name may stand anywhere"},
      {"# utf-8", Untouched, "without the tag"},
  };
  for (const auto& [line, expected, fault] : rows) {
    TextCodec_t codec = Untouched;
    EXPECT_EQ(getCodecInLine(line, &codec), expected != Untouched) << fault;
    EXPECT_EQ(codec, expected) << fault;
  }
  EXPECT_STREQ(getCodecForLine(CodecUtf8), "# <defaultcodec>utf-8</defaultcodec>");
  EXPECT_STREQ(getCodecForLine(CodecLatin1), "# <defaultcodec>iso8859-1</defaultcodec>");
  EXPECT_STREQ(getNameForCodec(CodecLatin1), "iso8859-1");
  EXPECT_STREQ(getNameForCodec(Untouched), "") << "an unknown codec has no name";
  EXPECT_STREQ(getCodecForLine(Untouched), "");
}

TEST(TextCodec, Conversion) {
  const auto text = QString::fromUtf8("\u00e4\u20ac");
  constexpr auto Unknown = static_cast<TextCodec_t>(2);
  EXPECT_EQ(toCodec(CodecUtf8, text), "\xc3\xa4\xe2\x82\xac");
  EXPECT_EQ(toCodec(CodecLatin1, text), "\xe4?") << "what Latin-1 lacks";
  EXPECT_EQ(toCodec(Unknown, text), "\xe4?") << "an unknown codec is Latin-1";
  EXPECT_EQ(toExportCodec(text), toCodec(CodecUtf8, text));
  const WideRow rows[] = {
      {fromCodec(CodecUtf8, "\xc3\xa4x", 2), QString(QChar(0xe4)), "the length counts"},
      {fromCodec(CodecLatin1, "\xc3\xa4", 1), QString(QChar(0xc3)), "one byte, one character"},
      {fromCodec(Unknown, std::string("\xe4")), QString(QChar(0xe4)), "an unknown codec"},
      {fromCodec(CodecUtf8, std::string("a\0b", 3)), QString("a") + QChar(0) + "b", "zero byte"},
      {fromExportCodec(std::string("\xe2\x82\xac")), QString(QChar(0x20ac)), "export is UTF-8"},
      {fromCodec(CodecLatin1, QByteArray("a\0\xe4", 3)), QString("a") + QChar(0) + QChar(0xe4),
       "an array up to its zero byte"},
      {fromExportCodec(QByteArray("\xe2\x82\xac")), QString(QChar(0x20ac)), "an array"},
      {fromCodec(CodecUtf8, "\xc3\xa4") + fromExportCodec("b"), QString(QChar(0xe4)) + "b",
       "literals that fit two overloads"},
  };
  expectAll(rows);
}

TEST(Quoting, ShellWord) {
  EXPECT_EQ(toQuotedShellString("a\"b$c"), "\"a\\\"b\\$c\"");
  EXPECT_EQ(toQuotedShellString("\\`\n'!"), "\"\\\\\\`\n'!\"") << "only four bytes are escaped";
  EXPECT_EQ(toQuotedShellString(""), "\"\"");
}

TEST(Quoting, StripQuotes) {
  const WideRow rows[] = {
      {qstringStripQuotes("\" x \""), "x", "blanks within the quotes"},
      {qstringStripQuotes("x\""), "x", "a quote at the end only"},
      {qstringStripQuotes("\""), "", "one quote is not two"},
      {qstringStripQuotes("\"\"x\"\""), "\"x\"", "one pair only"},
      {qstringStripQuotes(" \"x\" "), "\"x\"", "blanks outside hide the quotes"},
      {qstringStripQuotes(QString::fromUtf8("\u2003\t")), "", "nothing but white space"},
  };
  expectAll(rows);
}

TEST(Quoting, PythonLiterals) {
  const QString special = "'\n\r\f\t\\";
  const WideRow rows[] = {
      {quotePythonString(special), "\\'\\n\\r\\f\\t\\\\", "six escapes"},
      {quotePythonString("\"\a\b\v"), "\"\a\b\v", "others pass"},
      {unquotePythonString(quotePythonString(special + "\"n\\n")), special + "\"n\\n", "reversal"},
      {unquotePythonString("a\\"), "a", "a backslash at the end is dropped"},
      {unquotePythonString("\\x41\\\"\\\\n"), "x41\"\\n", "no hexadecimal escapes"},
  };
  expectAll(rows);
}

TEST(Quoting, RichText) {
  EXPECT_EQ(tokenizeRT("<a b>\n\"'&", true), "&lt;a&nbsp;b&gt;<br>&quot;&apos;&amp;");
  EXPECT_EQ(tokenizeRT("a b\r\t", false), "a b\r\t");
}

TEST(Parse, CharactersOfASet) {
  const std::tuple<int, int, const char*> rows[] = {
      {findFirstOf("abcabc", "cb", 0), 1, "the first of several"},
      {findFirstOf("abcabc", "a", 1), 3, "starts at the index"},
      {findFirstOf("abc", "c", 3), -1, "beyond the end"},
      {findFirstNotOf("aabb", "a", 1), 2, "the first other"},
      {findFirstNotOf("a", "", 0), 0, "an empty set"},
      {findLastOf("abc", "a", 99), 0, "from beyond the end"},
      {findLastOf("abca", "a", 2), 0, "backwards from the index"},
      {findLastOf("abca", "a", -5), 3, "a negative index is the end"},
      {findLastNotOf("abbb", "b", 3), 0, "the last other"},
  };
  for (const auto& [found, expected, fault] : rows) {
    EXPECT_EQ(found, expected) << fault;
  }
}

}  // namespace
