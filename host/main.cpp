#include <cstdio>
#include <exception>

#include "host/app/program.h"

int main(int argc, char** argv) {
  try {
    return qen::host::Run(argc, argv) ? 0 : 1;
  } catch (const std::exception& problem) {
    std::fprintf(stderr, "guihost: %s\n", problem.what());
    return 1;
  }
}
