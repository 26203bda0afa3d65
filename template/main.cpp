// tevra-template SOURCES TARGET: builds the template company file.
#include <iostream>

#include "platform/text/Failure.h"
#include "template/BuildTemplate.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: tevra-template SOURCES TARGET\n";
    return 2;
  }
  try {
    tevra::BuildTemplate(argv[1], argv[2]);
    return 0;
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
}
