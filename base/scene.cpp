#include "engine/scene.h"

#include <optional>
#include <utility>

#include "base/backends/file_backend.h"
#include "base/context.h"
#include "base/instance.h"
#include "base/record.h"
#include "base/scene_data.h"
#include "base/utf.h"

namespace qen {
namespace {

using base::Animation;
using base::AnimationData;
using base::Context;
using base::SceneData;

constexpr std::uint32_t kMaxAnimations = 4096;  // of a scene; the indices are dense at the instances

// What `parse` makes of a file's content. Failures are logged.
template <class Result, class Parse>
std::optional<Result> ReadAnd(Context* context, StringView what, const String& file, Parse parse) {
  if (context == nullptr) return std::nullopt;
  const base::Backends& backends = context->backends;
  std::vector<std::uint8_t> bytes;
  if (backends.files == nullptr || backends.scenes == nullptr || !backends.files->Read(file, bytes)) {
    context->log.ReportMissing(what, file);
    return std::nullopt;
  }
  String error;
  std::optional<Result> result = parse(*backends.scenes, bytes, error);
  if (!result) context->log.ReportMissing(what, file, error);
  return result;
}

template <class T>
void KeepIfSound(base::Track<T>& target, const base::Track<T>& source) {
  if (base::IsSound(source)) target = source;
}

Animation Resolve(const AnimationData& source, const SimpleScene::Data& scene) {
  Animation animation;
  animation.frames = source.seconds * base::kFramesPerSecond;
  for (const base::NodeTracks& tracks : source.nodes) {
    const TMNode* node = scene.names.Find(tracks.node);
    if (node == nullptr) continue;
    Animation::Channel& channel = animation.channels.emplace_back();
    channel.node = node->position;
    KeepIfSound(channel.translation, tracks.translation);
    KeepIfSound(channel.rotation, tracks.rotation);
    KeepIfSound(channel.scale, tracks.scale);
  }
  return animation;
}

std::uint32_t NextFree(const std::map<std::uint32_t, Animation>& animations) {
  std::uint32_t next = 0;
  for (const auto& [index, animation] : animations) {
    if (index != next) break;
    ++next;
  }
  return next;
}

}  // namespace

SimpleScene::SimpleScene(const char* owner, std::int32_t line) : data_(std::make_unique<Data>()) {
  base::Record("SimpleScene::SimpleScene", StringView(base::ToUtf16(owner == nullptr ? "" : owner)), line);
}

SimpleScene::~SimpleScene() {
  base::Record("SimpleScene::~SimpleScene", base::Named{this});
  base::ForgetObject(this);
  if (Context* context = base::CurrentContext()) context->scenes.Forget(*this);
}

bool SimpleScene::Load(const String& file, bool withTextures) {
  base::Record("SimpleScene::Load", file, withTextures);
  const base::RecordPause pause;
  base::NameObject(this, file);
  data_->Clear();
  Context* context = base::CurrentContext();
  const auto source = ReadAnd<SceneData>(context, u"scene", file, [&](auto& scenes, const auto& bytes, String& error) {
    return scenes.ParseScene(file, bytes, withTextures, error);
  });
  if (!source) return false;
  data_->Fill(file, *source, *context);
  return true;
}

bool SimpleScene::LoadAnimData(const String& file, std::uint32_t index) {
  base::Record("SimpleScene::LoadAnimData", file, index);
  const base::RecordPause pause;
  Context* context = base::CurrentContext();
  const auto source = ReadAnd<AnimationData>(
      context, u"animation", file,
      [&](auto& scenes, const auto& bytes, String& error) { return scenes.ParseAnimation(file, bytes, error); });
  if (!source) return false;
  const std::uint32_t position = index == kNextAnimation ? NextFree(data_->animations) : index;
  if (position >= kMaxAnimations) {
    context->log.ReportMissing(u"animation", file, u"too many animations");
    return false;
  }
  Animation& animation = data_->animations[position] = Resolve(*source, *data_);
  for (base::Instance* instance : data_->instances) instance->AddAnimation(position, animation.frames);
  return true;
}

const std::vector<TMNode*>& SimpleScene::GetNodes() const { return data_->order; }

std::uint32_t SimpleScene::GetNumNodesInRefFile() const { return static_cast<std::uint32_t>(data_->order.size()); }

TMNode* SimpleScene::FindMapNode(const String& name) const {
  const TMNode* node = data_->names.Find(name);
  return node == nullptr ? nullptr : data_->order[node->position];
}

}  // namespace qen
