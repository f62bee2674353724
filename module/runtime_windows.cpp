// The C++ library is a part of the DLL there. GCC's keeps memory for exceptions when none is left, and leaves it to the
// end of the process; a DLL may go before.
#include <cstddef>

#if defined(__GLIBCXX__)

namespace __gnu_cxx {
void __freeres();  // the library has it for tools that look for leaks, but declares it nowhere
}

namespace {

struct FreedWithTheDll {
  ~FreedWithTheDll() { __gnu_cxx::__freeres(); }
};
const FreedWithTheDll freed;

}  // namespace

#endif
