#include "host/fonts/font_catalog.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "base/utf.h"

namespace qen::host {
namespace {

const FcChar8* Bytes(const std::string& text) { return reinterpret_cast<const FcChar8*>(text.c_str()); }

int FcWeightOf(const base::FontRequest& request) {
  constexpr int kRegular = 400;
  return FcWeightFromOpenType(request.weight <= 0 ? kRegular : std::min(request.weight, 1000));
}

FcPatternOwner PatternFor(const base::FontRequest& request, FcConfig* config) {
  FcPatternOwner pattern(FcPatternCreate());
  const std::string family = base::ToUtf8(request.face);
  if (!family.empty()) FcPatternAddString(pattern.get(), FC_FAMILY, Bytes(family));
  FcPatternAddInteger(pattern.get(), FC_WEIGHT, FcWeightOf(request));
  FcPatternAddInteger(pattern.get(), FC_SLANT, request.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
  FcPatternAddBool(pattern.get(), FC_COLOR, FcFalse);
  FcPatternAddBool(pattern.get(), FC_VARIABLE, FcFalse);
  FcConfigSubstitute(config, pattern.get(), FcMatchPattern);
  FcDefaultSubstitute(pattern.get());
  return pattern;
}

int IntegerOf(FcPattern* pattern, const char* name, int otherwise) {
  int value = otherwise;
  return FcPatternGetInteger(pattern, name, 0, &value) == FcResultMatch ? value : otherwise;
}

bool IsTrue(FcPattern* pattern, const char* name) {
  FcBool value = FcFalse;
  return FcPatternGetBool(pattern, name, 0, &value) == FcResultMatch && value == FcTrue;
}

// Whether the face has the family's name, in any language and letter case, or the family is a generic one.
bool IsFamily(FcPattern* found, const std::string& family) {
  constexpr std::array kGeneric{"", "serif", "sans", "sans-serif", "monospace", "cursive", "fantasy", "system-ui"};
  const auto same = [&family](const char* name) { return FcStrCmpIgnoreCase(Bytes(family), Bytes(name)) == 0; };
  if (std::ranges::any_of(kGeneric, same)) return true;
  FcChar8* name = nullptr;
  for (int i = 0; FcPatternGetString(found, FC_FAMILY, i, &name) == FcResultMatch; ++i) {
    if (FcStrCmpIgnoreCase(Bytes(family), name) == 0) return true;
  }
  return false;
}

std::string FamilyOf(FcPattern* found) {
  FcChar8* name = nullptr;
  const bool named = FcPatternGetString(found, FC_FAMILY, 0, &name) == FcResultMatch;
  return named ? reinterpret_cast<const char*>(name) : "another";
}

// Nothing for faces that have no outlines in one colour.
bool ReadFace(FcPattern* found, const base::FontRequest& request, CatalogFace& face) {
  FcChar8* file = nullptr;
  FcCharSet* characters = nullptr;
  if (!IsTrue(found, FC_SCALABLE) || IsTrue(found, FC_COLOR)) return false;
  if (FcPatternGetString(found, FC_FILE, 0, &file) != FcResultMatch) return false;
  if (FcPatternGetCharSet(found, FC_CHARSET, 0, &characters) != FcResultMatch) return false;
  face.file = reinterpret_cast<const char*>(file);
  face.index = IntegerOf(found, FC_INDEX, 0);
  face.needsBold =
      FcWeightOf(request) >= FC_WEIGHT_DEMIBOLD && IntegerOf(found, FC_WEIGHT, FC_WEIGHT_REGULAR) < FC_WEIGHT_DEMIBOLD;
  face.needsOblique = request.italic && IntegerOf(found, FC_SLANT, FC_SLANT_ROMAN) == FC_SLANT_ROMAN;
  face.characters.reset(FcCharSetCopy(characters));
  return true;
}

}  // namespace

FontCatalog::FontCatalog() : config_(FcInitLoadConfigAndFonts()) {
  if (config_ == nullptr) throw std::runtime_error("the list of installed fonts cannot be read");
}

bool FontCatalog::AddFolder(const std::string& folder) {
  return FcConfigAppFontAddDir(config_.get(), Bytes(folder)) == FcTrue;
}

std::vector<CatalogFace> FontCatalog::Find(const base::FontRequest& request) const {
  const FcPatternOwner pattern = PatternFor(request, config_.get());
  FcResult result = FcResultMatch;
  const FcFontSetOwner sorted(FcFontSort(config_.get(), pattern.get(), FcTrue, nullptr, &result));
  std::vector<CatalogFace> faces;
  if (sorted == nullptr) return faces;
  for (int i = 0; i < sorted->nfont; ++i) {
    CatalogFace face;
    if (!ReadFace(sorted->fonts[i], request, face)) continue;
    if (faces.empty() && !IsFamily(sorted->fonts[i], base::ToUtf8(request.face))) {
      face.substitute = FamilyOf(sorted->fonts[i]);
    }
    faces.push_back(std::move(face));
  }
  return faces;
}

}  // namespace qen::host
