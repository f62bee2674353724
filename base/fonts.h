// The font manager.
#pragma once

#include <cstdint>
#include <memory>

#include "base/backends/font_backend.h"
#include "base/log.h"
#include "base/resource_store.h"
#include "engine/font.h"

namespace qen::base {

// Eight average characters, in font pixels.
QEN_API float TabWidthOf(IFontFace& face);

class FontObject final : public Font {
 public:
  // `family` is the one that was asked for.
  FontObject(StringView name, StringView group, StringView family, std::unique_ptr<IFontFace> face, std::uint32_t id,
             LogService& log);

  void GetTextMetric(TextMetric& metric) const override { metric = metric_; }

  [[nodiscard]] IFontFace& GetFace() const { return *face_; }

  // Logs, once a family, that another one stands in for it. To be called when the font is really used.
  void ReportSubstitute() const;

  [[nodiscard]] const TextMetric& GetMetric() const { return metric_; }
  [[nodiscard]] std::uint32_t GetId() const { return id_; }  // of no other font of this engine, ever
  [[nodiscard]] float GetTabWidth() const { return tabWidth_; }

 private:
  String family_;
  std::unique_ptr<IFontFace> face_;
  LogService& log_;
  TextMetric metric_;
  std::uint32_t id_;
  float tabWidth_;
};

class FontService final : public FontManager {
 public:
  FontService(IFontBackend* backend, LogService& log) : backend_(backend), log_(log) {}

  Font* CreateEx(const Char* face, std::int32_t height, std::int32_t width, std::int32_t weight, bool italic,
                 std::int32_t quality, const String& group) override;
  void Destroy(Resource* resource) override;

 private:
  void SetKey(const FontRequest& request, std::int32_t quality, StringView group);

  IFontBackend* backend_;  // null: there are no fonts
  LogService& log_;
  ResourceStore<FontObject> fonts_;
  std::uint32_t lastId_ = 0;
  String key_;  // all that tells one request from another; kept for its storage
};

}  // namespace qen::base
