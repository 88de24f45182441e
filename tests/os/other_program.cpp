// What the tests of processes start: does what its first word says.
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

int main(int count, char** words) {
  const std::vector<std::string> arguments(words + 1, words + count);
  const std::string order = arguments.empty() ? "" : arguments[0];
  if (order == "say") {
    for (const std::string& argument : arguments) {
      std::cout << argument.size() << ':' << argument << '|';
    }
    std::cerr << "to the other stream";
    return 7;
  }
  if (order == "flood") {
    std::cerr << std::string(300000, 'e');
    std::cout << std::string(300000, 'o');
  }
  if (order == "read") {
    std::cout << std::cin.rdbuf();
  }
  if (order == "variable") {
    const char* const value = std::getenv(arguments[1].c_str());
    std::cout << (value ? value : "not set");
  }
  if (order == "abort") {
    std::abort();
  }
  return 0;
}
