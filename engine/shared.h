// Values that many objects have in common until one of them changes its own.
#pragma once

#include <cstdint>
#include <utility>

namespace qen {

// Looks like a `const T`. As large as a pointer.
template <class T>
class Shared {
  static_assert(alignof(T) > 1, "the lowest bit of its address says whose it is");

 public:
  Shared() = default;
  // The common value, which must outlive all that share it and does not change.
  explicit Shared(const T& common) : bits_(reinterpret_cast<std::uintptr_t>(&common)) {}
  ~Shared() { Drop(); }
  Shared(Shared&& other) noexcept : bits_(std::exchange(other.bits_, Shared().bits_)) {}
  Shared& operator=(Shared&& other) noexcept {
    std::swap(bits_, other.bits_);
    return *this;
  }
  Shared(const Shared&) = delete;
  Shared& operator=(const Shared&) = delete;

  // From now on it has a value of its own.
  Shared& operator=(const T& value) {
    Own() = value;
    return *this;
  }

  [[nodiscard]] bool IsOwn() const { return (bits_ & kOwn) != 0; }

  // Its own value; a copy of the common one at first. Stays where it is.
  T& Own() {
    if (!IsOwn()) bits_ = reinterpret_cast<std::uintptr_t>(new T(**this)) | kOwn;
    return *Address();
  }

  const T& operator*() const { return *Address(); }
  const T* operator->() const { return Address(); }
  operator const T&() const { return *Address(); }  // NOLINT(google-explicit-constructor): it stands for the value

 private:
  static constexpr std::uintptr_t kOwn = 1;
  static inline const T kPlain{};

  [[nodiscard]] T* Address() const { return reinterpret_cast<T*>(bits_ & ~kOwn); }

  void Drop() {
    if (IsOwn()) delete Address();
  }

  std::uintptr_t bits_ = reinterpret_cast<std::uintptr_t>(&kPlain);
};

}  // namespace qen
