#include "tool/answers.h"

TEST(ToolText, AnswersOnTheCommandLine) {
  const QByteArray piece(196608, 'A');  // read at once
  const KyrTest::TempDir folder;
  for (const char* const name : {"empty", "i0001.t", "i0005.t", "j4294967295"}) {
    folder.write(name, "");
  }
  const std::vector<KyrTest::Answer> rows = {
      {"base64 encode -", 0, "$Zm8=\n", "", "one line", "fo"},
      {"base64 encode empty", 0, "$\n", "", "an empty file"},
      {"base64 decode -", 0, "$foof", "", "white space anywhere", " Zm\r\n9v\tZg=\n="},
      {"base64 decode -", 0, "$fooffo", "", "joined texts", "Zm9vZg==Zm8=\n"},
      {"base64 decode -", 1, "$foo", "kyr: standard input: no Base64 at byte 7", "a wrong letter",
       "Zm9vYm\n-Fy"},
      {"base64 decode -", 1, "$foo", "at byte 5\n", "padding too early", "Zm9vZ=g="},
      {"base64 decode -", 1, "$foo", "at byte 7\n", "a letter behind padding", "Zm9vZg=v"},
      {"base64 decode -", 1, "$foo", "ends within a group", "cut short", "Zm9vZg"},
      {"base64 decode -", 1, '$' + QByteArray(294912, '\0'), "at byte 393217\n",
       "places in later pieces", piece + '\n' + piece + '!'},
      {"base64 decode", 2, "$", "usage: kyr base64 decode FILE", "no file"},
      {"base64", 2, "$", "base64 needs one of encode, decode\n", "half a command"},
      {"crc16 - empty", 0, "$31c3  -\n0000  empty\n", "", "several files", "123456789"},
      {"crc16 missing", 1, "$", "missing: no such file", "no such file"},
      {"sort", 0, "$007\n7\nb\nitem9\r\nitem10\n\xff\n", "", "lines come out as they went in",
       "b\nitem10\nitem9\r\n\xff\n007\n7"},
      {"sort", 0, "$\na\na7\na2147483648\na099999999998b\na99999999998b\na99999999999\n", "",
       "numbers beyond those of NumString",
       "a99999999999\na99999999998b\na099999999998b\na2147483648\na7\n\na\n"},
      {"sort empty", 0, "$", "", "nothing to sort"},
      {"next i0001.t", 0, "$i0006.t\n", "", "behind the last, not into a gap"},
      {"next i1.t", 0, "$i6.t\n", "", "in the width that was asked for"},
      {"next i0010.t", 0, "$i0010.t\n", "", "free and higher"},
      {"next ./i1.t", 0, "$./i6.t\n", "", "a directory stays"},
      {"next new0.t", 0, "$new0.t\n", "", "a series that is to begin"},
      {"next j1", 1, "$", "j1: no number is left", "the numbers are used up"},
      {"next no/i1.t", 1, "$", "cannot read the directory no/: there is no such", "no directory"},
      {"next i.t", 2, "$", "\"i.t\" does not end in a number", "no number"},
      {"next i4294967296.t", 2, "$", "below 2^32", "too large a number"},
  };
  KyrTest::expectAnswers(folder, rows);
}
