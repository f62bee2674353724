// Linux tells of changes, folder by folder.
#include <linux/magic.h>
#include <sys/inotify.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "host/files/file_watch_polling.h"
#include "host/files/watched_files.h"

namespace qen::host {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::uint32_t kEvents =
    IN_CREATE | IN_MODIFY | IN_CLOSE_WRITE | IN_ATTRIB | IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE | IN_ONLYDIR;
constexpr std::size_t kEventBytes = std::size_t{64} * 1024;  // taken in a frame at most; others wait for the next

// Others may change files there without this system's knowledge.
bool IsShared(const fs::path& place) {
  constexpr std::array<std::uint32_t, 9> kShared{NFS_SUPER_MAGIC,  SMB_SUPER_MAGIC, SMB2_SUPER_MAGIC,
                                                 CIFS_SUPER_MAGIC, V9FS_MAGIC,      FUSE_SUPER_MAGIC,
                                                 CEPH_SUPER_MAGIC, AFS_SUPER_MAGIC, 0x786F4256 /* VirtualBox */};
  struct statfs system = {};
  return statfs(place.c_str(), &system) == 0 &&
         std::ranges::find(kShared, static_cast<std::uint32_t>(system.f_type)) != kShared.end();
}

// Without a name at the end when the path had a separator there.
fs::path WholePath(const fs::path& place) {
  const fs::path path = fs::absolute(place).lexically_normal();
  return path.has_filename() ? path : path.parent_path();
}

class InotifyWatch final : public FileWatch {
 public:
  InotifyWatch(std::vector<fs::path> places, std::chrono::milliseconds quietTime)
      : places_(std::move(places)),
        quietTime_(quietTime),
        queue_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)),
        buffer_(kEventBytes) {
    canWatch_ = queue_ >= 0 && std::ranges::none_of(places_, IsShared);
    if (canWatch_) WatchPlaces();
    if (!canWatch_) LookInstead();
  }
  ~InotifyWatch() override { CloseQueue(); }
  InotifyWatch(const InotifyWatch&) = delete;
  InotifyWatch& operator=(const InotifyWatch&) = delete;

  bool HasChanged() override {
    if (polling_ != nullptr && polling_->HasChanged()) return true;
    if (polling_ == nullptr) TakeEvents();
    if (!lastChange_ || Clock::now() - *lastChange_ < quietTime_) return false;
    lastChange_.reset();
    return true;
  }

 private:
  struct Folder {
    fs::path path;
    bool whole = false;           // or only
    std::set<std::string> names;  // what is called so in it
  };

  // A place is also looked for in the folder around it: it may be replaced by another of its name.
  void WatchPlaces() {
    for (const fs::path& place : places_) {
      const fs::path path = WholePath(place);
      WatchName(path);
      WatchTree(path);
    }
  }

  // Null when it is not watched.
  Folder* WatchFolder(const fs::path& path) {
    const int id = inotify_add_watch(queue_, path.c_str(), kEvents);
    if (id < 0) {
      const bool isGone = errno == ENOENT || errno == ENOTDIR || errno == EACCES;  // as for who reads the data
      canWatch_ = canWatch_ && isGone;
      return nullptr;
    }
    Folder& folder = folders_[id];
    folder.path = path;
    return &folder;
  }

  void WatchName(const fs::path& path) {
    if (Folder* folder = WatchFolder(path.parent_path())) folder->names.insert(path.filename().string());
    FollowLink(path);
  }

  // A link to a file stays as it is when the file changes.
  void FollowLink(const fs::path& path) {
    std::error_code gone;
    if (!fs::is_symlink(path, gone)) return;
    const fs::path target = fs::canonical(path, gone);
    if (!gone) WatchName(target);
  }

  // True when there are files in it. They may be older than the watch, so that nothing else tells of them.
  bool WatchTree(const fs::path& top) {
    bool found = false;
    const auto watch = [this](const fs::path& path) {
      Folder* folder = WatchFolder(path);
      if (folder != nullptr) folder->whole = true;
      return folder != nullptr;
    };
    VisitFiles(top, watch, [&](const fs::directory_entry& file) {
      found = true;
      FollowLink(file.path());
    });
    return found;
  }

  void TakeEvents() {
    const ssize_t size = read(queue_, buffer_.data(), buffer_.size());
    for (ssize_t place = 0; place < size;) {
      const auto& event = *reinterpret_cast<const inotify_event*>(buffer_.data() + place);
      TakeEvent(event);
      place += static_cast<ssize_t>(sizeof event + event.len);
    }
    if (!canWatch_) LookInstead();
  }

  void TakeEvent(const inotify_event& event) {
    if ((event.mask & IN_Q_OVERFLOW) != 0) {
      WatchPlaces();
      return NoteChange();
    }
    if ((event.mask & IN_IGNORED) != 0) folders_.erase(event.wd);
    const auto folder = folders_.find(event.wd);
    if (folder == folders_.end() || event.len == 0) return;
    const std::string name(event.name);
    if (!folder->second.whole && !folder->second.names.contains(name)) return;
    const fs::path path = folder->second.path / name;
    (event.mask & IN_ISDIR) != 0 ? TakeFolder(path, event.mask) : TakeFile(path, event.mask);
  }

  void TakeFile(const fs::path& path, std::uint32_t what) {
    if (IsBeingWritten(path)) return;
    NoteChange();
    if ((what & (IN_CREATE | IN_MOVED_TO)) != 0) FollowLink(path);
  }

  void TakeFolder(const fs::path& path, std::uint32_t what) {
    if (HoldsBackups(path)) return;
    const bool hasLeft = (what & IN_MOVED_FROM) != 0;
    if (hasLeft) Forget(path);
    const bool hasCome = (what & (IN_CREATE | IN_MOVED_TO)) != 0;
    if (hasLeft || (hasCome && WatchTree(path))) NoteChange();
  }

  // A folder that was moved away would go on telling.
  void Forget(const fs::path& path) {
    std::erase_if(folders_, [&](const auto& watched) {
      const std::string known = watched.second.path.string() + '/';
      if (!known.starts_with(path.string() + '/')) return false;
      inotify_rm_watch(queue_, watched.first);
      return true;
    });
  }

  void NoteChange() { lastChange_ = Clock::now(); }

  void LookInstead() {
    CloseQueue();
    folders_.clear();
    polling_ = std::make_unique<PollingWatch>(places_, quietTime_);
  }

  void CloseQueue() {
    if (queue_ >= 0) close(std::exchange(queue_, -1));
  }

  std::vector<fs::path> places_;
  std::chrono::milliseconds quietTime_;
  int queue_;  // of events; -1 for none
  std::vector<char> buffer_;
  std::unordered_map<int, Folder> folders_;
  std::optional<Clock::time_point> lastChange_;  // one that has not been told
  bool canWatch_ = true;
  std::unique_ptr<PollingWatch> polling_;  // where folders cannot be watched
};

}  // namespace

std::unique_ptr<FileWatch> WatchFiles(std::vector<fs::path> places, std::chrono::milliseconds quietTime) {
  return std::make_unique<InotifyWatch>(std::move(places), quietTime);
}

}  // namespace qen::host
