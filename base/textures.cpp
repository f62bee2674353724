#include "base/textures.h"

#include <vector>

#include "base/backends/file_backend.h"
#include "base/backends/render_backend.h"
#include "base/backends/scene_backend.h"
#include "base/context.h"
#include "base/record.h"

namespace qen {

TextureManager* TextureManager::GetSingleton() {
  base::Context* context = base::CurrentContext();
  return context == nullptr ? nullptr : &context->textures;
}

}  // namespace qen

namespace qen::base {

TextureObject::TextureObject(StringView name, StringView group, const Image& image, Context& engine)
    : Texture(name, group),
      engine_(&engine),
      handle_(engine.backends.render == nullptr ? 0 : engine.backends.render->CreateTexture(image)),
      width_(image.width),
      height_(image.height) {}

TextureObject::~TextureObject() {
  if (handle_ == 0 || CurrentContext() != engine_) return;
  engine_->render.ForgetTexture(handle_);
  engine_->backends.render->DestroyTexture(handle_);
}

Texture* TextureService::Load(const String& file, const String& group, std::int32_t mipLevels, std::uint32_t flags) {
  Record("TextureManager::Load", file, group, mipLevels, flags);
  const String key = FileKey(file) + u'\n' + group;
  if (TextureObject* loaded = textures_.Use(key)) return loaded;
  const std::optional<Image> image = ReadPicture(file);
  if (!image) return nullptr;
  return textures_.Add(key, std::make_unique<TextureObject>(file, group, *image, engine_));
}

void TextureService::Destroy(Resource* resource) {
  Record("TextureManager::Destroy", textures_.Known(resource));
  textures_.Release(resource);
}

std::optional<Image> TextureService::ReadPicture(const String& file) const {
  if (file.empty()) return std::nullopt;  // nobody named one: no fault of its own
  const Backends& backends = engine_.backends;
  std::vector<std::uint8_t> bytes;
  for (const StringView ending : kPictureEndings) {
    if (backends.files == nullptr || !backends.files->Read(file + String(ending), bytes)) continue;
    std::optional<Image> image;
    if (backends.scenes != nullptr) image = backends.scenes->ParseImage(bytes);
    if (!image) engine_.log.ReportMissing(u"texture", file, u"not a picture");
    return image;
  }
  engine_.log.ReportMissing(u"texture", file);
  return std::nullopt;
}

}  // namespace qen::base
