// A Lua state that scripts run in, and what they may do there.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <lua.hpp>
#include <memory>
#include <string>

namespace qen::host {

class ScriptWorld;

enum class Trust {
  Named,  // somebody named the script: it may do what Lua can
  Found,  // it came with the data: it has the GUI, and of Lua what stays inside (closed_libraries.h)
};

class ScriptState {
 public:
  // What runs in it at a time may take so many seconds, and 10 at most without trust. The world must live longer.
  ScriptState(ScriptWorld& world, Trust trust, double seconds);
  ScriptState(const ScriptState&) = delete;
  ScriptState& operator=(const ScriptState&) = delete;

  static ScriptState& Of(lua_State* state);  // also of one of its coroutines

  [[nodiscard]] ScriptWorld& World() { return world_; }
  [[nodiscard]] bool IsTrusted() const { return trust_ == Trust::Named; }

  // Throws std::runtime_error, with one line that names the file and the script's line, when the file cannot be read,
  // is no Lua, or fails.
  void Run(const std::filesystem::path& file);
  void RunText(const std::string& name, const std::string& text);  // the name is for people

  // Calls a function that the registry keeps, with the one value that `push` pushes. Whether its first result is true.
  // Throws as Run does.
  bool Call(int function, const std::function<void(lua_State* state)>& push);

 private:
  struct Close {
    void operator()(lua_State* state) const { lua_close(state); }
  };

  static void* Allocate(void* self, void* block, std::size_t before, std::size_t after);
  static void LookAtTime(lua_State* state, lua_Debug* event);
  void OpenLibraries();
  void Protect(const std::function<void(lua_State* state)>& work);

  ScriptWorld& world_;
  Trust trust_;
  double seconds_;
  std::size_t used_ = 0;  // bytes, of a script that is not trusted
  std::string place_;     // where it was last seen, since an error of memory does not tell
  std::unique_ptr<lua_State, Close> state_;
};

}  // namespace qen::host
