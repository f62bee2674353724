// The texture manager.
#pragma once

#include <array>
#include <memory>
#include <optional>

#include "base/backends/image.h"
#include "base/resource_store.h"
#include "engine/texture.h"

namespace qen::base {

struct Context;

// What a picture's name may lack at its end, in the order in which it is tried.
inline constexpr std::array<StringView, 5> kPictureEndings{u"", u".png", u".jpg", u".tga", u".bmp"};

// A picture at the renderer, for as long as this lives and the engine that made it does.
class TextureObject final : public Texture {
 public:
  TextureObject(StringView name, StringView group, const Image& image, Context& engine);
  ~TextureObject() override;

  [[nodiscard]] std::uint32_t GetHandle() const override { return handle_; }
  [[nodiscard]] std::int32_t GetWidth() const override { return width_; }
  [[nodiscard]] std::int32_t GetHeight() const override { return height_; }

 private:
  Context* engine_;
  std::uint32_t handle_;
  std::int32_t width_;
  std::int32_t height_;
};

class TextureService final : public TextureManager {
 public:
  explicit TextureService(Context& engine) : engine_(engine) {}

  // Names without their extension find the first file of a common picture format.
  Texture* Load(const String& file, const String& group, std::int32_t mipLevels, std::uint32_t flags) override;
  void Destroy(Resource* resource) override;

 private:
  [[nodiscard]] std::optional<Image> ReadPicture(const String& file) const;

  Context& engine_;
  ResourceStore<TextureObject> textures_;
};

}  // namespace qen::base
