#include <cstdio>
#include <exception>

#include "host/app/program.h"

int main(int argc, char** argv) {
  try {
    qen::host::Run(argc, argv);
    return 0;
  } catch (const std::exception& problem) {
    std::fprintf(stderr, "guihost: %s\n", problem.what());
    return 1;
  }
}
