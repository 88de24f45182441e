// The library's side of test_formats.py: turns standard input into standard output.
#include <kyr/pack/KyrCompress.h>
#include <kyr/pack/KyrZipStream.h>

#include <iostream>
#include <iterator>
#include <string>

int main(int, char** arguments) {
  const std::string action = arguments[1];
  if (action == "unzip") {
    Kyr::ZipInStream in(&std::cin, 7);
    std::cout << in.rdbuf();
    return in.getState() == Kyr::ZipInStream::StreamComplete ? 0 : 1;
  }
  const std::string input{std::istreambuf_iterator<char>(std::cin), {}};
  if (action == "zip") {
    Kyr::ZipOutStream out(&std::cout, 7);
    out << input;
    out.close();
    return out.good() ? 0 : 1;
  }
  Kyr::StructVector<unsigned char> bytes;
  Kyr::Compress compress(Kyr::Compress::GzipFormat, &bytes);
  compress.write(input.data(), static_cast<unsigned>(input.size()));
  compress.flush();
  std::cout << std::string(bytes.begin(), bytes.end());
}
