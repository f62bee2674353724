#include "host/app/program.h"

int main(int argc, char** argv) { return qen::host::Run(argc, argv); }
