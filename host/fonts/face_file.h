// Opened font files.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "host/fonts/library_objects.h"

namespace qen::host {

// Sizes in pixels of the em square.
struct EmSize {
  float x = 0.0F;
  float y = 0.0F;
};

class FaceFile {
 public:
  FaceFile(FtFace face, std::uint32_t id) : face_(std::move(face)), id_(id) {}

  // What follows is measured and drawn in that size.
  void SetSize(EmSize em);

  [[nodiscard]] FT_Face Get() const { return face_.get(); }
  [[nodiscard]] std::uint32_t GetId() const { return id_; }  // of no other file

  // As shares of the em square: above and below the base line, and the width of an average character.
  [[nodiscard]] float Ascent() const;
  [[nodiscard]] float Descent() const;
  [[nodiscard]] float AverageWidth() const;

 private:
  [[nodiscard]] float PerEm(long units) const;

  FtFace face_;
  std::uint32_t id_;
};

// Opens each file once and keeps it.
class FaceLibrary {
 public:
  FaceLibrary();  // throws std::runtime_error when FreeType does not work

  FaceFile* Open(const std::string& file, int index);  // null when it cannot be read

 private:
  FtLibrary library_;
  std::map<std::pair<std::string, int>, std::unique_ptr<FaceFile>> files_;  // null: cannot be read
};

}  // namespace qen::host
