// Backends that pass everything on, but for the calls that are to fail.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "base/backends/file_backend.h"
#include "base/backends/font_backend.h"
#include "base/backends/render_backend.h"
#include "base/backends/scene_backend.h"
#include "base/backends/sound_backend.h"
#include "tests/faults/fault_plan.h"

namespace qen::test::failing {

struct Files final : Faulty<base::IFileBackend> {
  using Faulty::Faulty;
  bool Read(StringView name, std::vector<std::uint8_t>& bytes) override {
    if (plan.Fails("IFileBackend::Read")) return false;
    const bool read = real->Read(name, bytes);
    if (plan.Fails("IFileBackend::Read, empty")) bytes.clear();
    return read;
  }
};

struct SceneFiles final : Faulty<base::ISceneBackend> {
  using Faulty::Faulty;
  std::optional<base::SceneData> ParseScene(StringView file, std::span<const std::uint8_t> bytes, bool withTextures,
                                            String& error) override {
    if (plan.Fails("ISceneBackend::ParseScene")) return std::nullopt;
    if (plan.Fails("ISceneBackend::ParseScene, empty")) return base::SceneData{};
    return real->ParseScene(file, bytes, withTextures, error);
  }
  std::optional<base::AnimationData> ParseAnimation(StringView file, std::span<const std::uint8_t> bytes,
                                                    String& error) override {
    if (plan.Fails("ISceneBackend::ParseAnimation")) return std::nullopt;
    if (plan.Fails("ISceneBackend::ParseAnimation, empty")) return base::AnimationData{};
    return real->ParseAnimation(file, bytes, error);
  }
  std::optional<base::Image> ParseImage(std::span<const std::uint8_t> bytes) override {
    if (plan.Fails("ISceneBackend::ParseImage")) return std::nullopt;
    return real->ParseImage(bytes);
  }
};

struct Renderer final : Faulty<base::IRenderBackend> {
  using Faulty::Faulty;
  std::uint32_t CreateTexture(const base::Image& image) override {
    return plan.Fails("IRenderBackend::CreateTexture") ? 0 : real->CreateTexture(image);
  }
  void DestroyTexture(std::uint32_t texture) override { real->DestroyTexture(texture); }
  std::uint32_t CreateGeometry(std::span<const base::Vertex> vertices,
                               std::span<const std::uint32_t> indices) override {
    return plan.Fails("IRenderBackend::CreateGeometry") ? 0 : real->CreateGeometry(vertices, indices);
  }
  void DestroyGeometry(std::uint32_t geometry) override { real->DestroyGeometry(geometry); }
  void Draw(base::DrawList& list, std::int32_t width, std::int32_t height) override { real->Draw(list, width, height); }
};

struct Faces final : Faulty<base::IFontBackend> {
  using Faulty::Faulty;
  std::unique_ptr<base::IFontFace> CreateFace(const base::FontRequest& request) override {
    return plan.Fails("IFontBackend::CreateFace") ? nullptr : real->CreateFace(request);
  }
};

struct Samples final : Faulty<base::ISoundBackend> {
  using Faulty::Faulty;
  std::uint32_t Load(std::span<const std::uint8_t> file) override {
    return plan.Fails("ISoundBackend::Load") ? 0 : real->Load(file);
  }
  void Play(std::uint32_t sound, float volume) override { real->Play(sound, volume); }
  void Free(std::uint32_t sound) override { real->Free(sound); }
};

}  // namespace qen::test::failing
