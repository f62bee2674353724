#include "base/fonts.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/context.h"
#include "base/record.h"
#include "engine/string_converter.h"

namespace qen {

FontManager* FontManager::GetSingleton() {
  base::Context* context = base::CurrentContext();
  return context == nullptr ? nullptr : &context->fonts;
}

}  // namespace qen

namespace qen::base {
namespace {

TextMetric MetricOf(const IFontFace& face) {
  TextMetric metric = face.Metric();
  metric.tmHeight = std::max(metric.tmHeight, 1);  // lines are counted by dividing by it
  return metric;
}

// Says all that tells one font from another: "courier -21 0 700", with " italic" at the end.
String Describe(const FontRequest& request) {
  String name = request.face;
  for (const std::int32_t number : {request.height, request.width, request.weight}) {
    name += u' ' + StringConverter::ToString(number);
  }
  return request.italic ? name + u" italic" : name;
}

}  // namespace

float TabWidthOf(IFontFace& face) {
  constexpr float kCharacters = 8.0F;
  std::vector<float> ends;
  face.Measure(u"x", ends);
  const float average = ends.empty() ? 0.0F : ends.back();
  return kCharacters * (average > 0.0F ? average : static_cast<float>(MetricOf(face).tmHeight) * 0.5F);
}

FontObject::FontObject(StringView name, StringView group, StringView family, std::unique_ptr<IFontFace> face,
                       std::uint32_t id, LogService& log)
    : Font(name, group),
      family_(family),
      face_(std::move(face)),
      log_(log),
      metric_(MetricOf(*face_)),
      id_(id),
      tabWidth_(TabWidthOf(*face_)) {}

void FontObject::ReportSubstitute() const {
  const String substitute = face_->Substitute();
  if (!substitute.empty()) log_.ReportMissing(u"font", family_, u"taking " + substitute + u" instead");
}

Font* FontService::CreateEx(const Char* face, std::int32_t height, std::int32_t width, std::int32_t weight, bool italic,
                            std::int32_t quality, const String& group) {
  Record("FontManager::CreateEx", face, height, width, weight, italic, quality, group);
  const FontRequest request{face == nullptr ? String() : face, height, width, weight, italic};
  SetKey(request, quality, group);
  if (FontObject* known = fonts_.Use(key_)) return known;
  std::unique_ptr<IFontFace> made = backend_ == nullptr ? nullptr : backend_->CreateFace(request);
  if (made == nullptr) {
    log_.ReportMissing(u"font", request.face);
    return nullptr;
  }
  const String name = Describe(request);
  return fonts_.Add(key_, std::make_unique<FontObject>(name, group, request.face, std::move(made), ++lastId_, log_));
}

void FontService::SetKey(const FontRequest& request, std::int32_t quality, StringView group) {
  key_ = ttolowercase(request.face);
  key_ += u'\n';
  for (const std::int32_t number :
       {request.height, request.width, request.weight, quality, std::int32_t{request.italic}}) {
    const auto bits = static_cast<std::uint32_t>(number);
    key_ += static_cast<Char>(bits >> 16U);
    key_ += static_cast<Char>(bits & 0xFFFFU);
  }
  key_ += group;
}

void FontService::Destroy(Resource* resource) {
  Record("FontManager::Destroy", fonts_.Known(resource));
  fonts_.Release(resource);
}

}  // namespace qen::base
