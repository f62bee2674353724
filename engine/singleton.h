// The one object of a class, while it exists.
#pragma once

namespace qen {

template <class T>
class Singleton {
 public:
  static T* GetSingletonPtr() { return static_cast<T*>(instance_); }  // null when there is none

  Singleton(const Singleton&) = delete;
  Singleton& operator=(const Singleton&) = delete;

 protected:
  Singleton() { instance_ = this; }
  ~Singleton() { instance_ = nullptr; }

 private:
  inline static Singleton* instance_ = nullptr;
};

}  // namespace qen
