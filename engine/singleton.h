// The one object of a class, while it exists.
#pragma once

namespace qen {

template <class T>
class Singleton {
 public:
  static T* GetSingletonPtr() { return instance_; }  // null when there is none

  Singleton(const Singleton&) = delete;
  Singleton& operator=(const Singleton&) = delete;

 protected:
  Singleton() { instance_ = static_cast<T*>(this); }
  ~Singleton() { instance_ = nullptr; }

 private:
  inline static T* instance_ = nullptr;
};

}  // namespace qen
