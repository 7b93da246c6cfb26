// Game directories on disks of several kinds, which all keep the same promises.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/memory_disk.h"
#include "support/faulty_disk.h"
#include "support/game.h"
#include "support/system.h"

namespace test {

/// A game directory and a look past the disk at what is in it.
class World {
  public:
    World() = default;
    virtual ~World() = default;
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    virtual std::string folder() const = 0;
    virtual std::shared_ptr<platform::RawDisk> raw() = 0;
    virtual void put(const std::string& path, const std::string& content) = 0;
    virtual void makeFolder(const std::string& path) = 0;
    /// False where the disk takes no links.
    virtual bool link(const std::string& path, const std::string& target) = 0;
    virtual std::optional<std::string> content(const std::string& path) = 0;
    virtual bool has(const std::string& path) = 0;
    /// Whether any text can be a name on it.
    virtual bool holdsAnyName() const { return true; }
};

class RealWorld final : public World {
  public:
    std::string folder() const override { return game_.at("world").string(); }
    std::shared_ptr<platform::RawDisk> raw() override { return platform::makeRawDisk(); }
    void put(const std::string& path, const std::string& content) override {
        game_.put("world/" + path, content);
    }
    void makeFolder(const std::string& path) override { game_.makeFolder("world/" + path); }
    bool link(const std::string& path, const std::string& target) override {
        return makeLink(target, game_.at("world/" + path));
    }
    std::optional<std::string> content(const std::string& path) override {
        return game_.content("world/" + path);
    }
    bool has(const std::string& path) override { return game_.has("world/" + path); }
    bool holdsAnyName() const override { return !onWindows; }

  private:
    Game game_;
};

class MemoryWorld final : public World {
  public:
    explicit MemoryWorld(platform::MemoryDiskKind kind)
        : disk_(std::make_shared<platform::MemoryDisk>(kind)) {}
    std::string folder() const override { return "/games/world"; }
    std::shared_ptr<platform::RawDisk> raw() override { return disk_; }
    void put(const std::string& path, const std::string& content) override {
        disk_->put(at(path), content);
    }
    void makeFolder(const std::string& path) override { disk_->putFolder(at(path)); }
    bool link(const std::string& path, const std::string& target) override {
        disk_->putLink(at(path), target);
        return true;
    }
    std::optional<std::string> content(const std::string& path) override {
        return disk_->content(at(path));
    }
    bool has(const std::string& path) override { return disk_->has(at(path)); }

  private:
    std::string at(const std::string& path) const { return folder() + "/" + path; }

    std::shared_ptr<platform::MemoryDisk> disk_;
};

/// The machine's disk behind a hook that never steps in.
class WrappedWorld final : public World {
  public:
    std::string folder() const override { return real_.folder(); }
    std::shared_ptr<platform::RawDisk> raw() override {
        return std::make_shared<FaultyRawDisk>(real_.raw(),
                                               [](const RawChange&) { return std::error_code(); });
    }
    void put(const std::string& path, const std::string& content) override {
        real_.put(path, content);
    }
    void makeFolder(const std::string& path) override { real_.makeFolder(path); }
    bool link(const std::string& path, const std::string& target) override {
        return real_.link(path, target);
    }
    std::optional<std::string> content(const std::string& path) override {
        return real_.content(path);
    }
    bool has(const std::string& path) override { return real_.has(path); }
    bool holdsAnyName() const override { return real_.holdsAnyName(); }

  private:
    RealWorld real_;
};

/// A row of the table of disks that keep the same promises.
struct WorldKind {
    const char* name;
    std::unique_ptr<World> (*make)();
};

template <platform::MemoryDiskKind kind>
std::unique_ptr<World> memoryWorld() {
    return std::make_unique<MemoryWorld>(kind);
}

inline const WorldKind worldKinds[] = {
    {"machine", []() -> std::unique_ptr<World> { return std::make_unique<RealWorld>(); }},
    {"wrapped", []() -> std::unique_ptr<World> { return std::make_unique<WrappedWorld>(); }},
    {"memory", memoryWorld<platform::MemoryDiskKind{}>},
    {"memory_ignoring_case", memoryWorld<platform::MemoryDiskKind{.ignoresCase = true}>},
    {"memory_ignoring_case_in_silence",
     memoryWorld<platform::MemoryDiskKind{.ignoresCase = true, .saysWhetherItIgnoresCase = false}>},
    {"memory_that_always_replaces",
     memoryWorld<platform::MemoryDiskKind{.refusesToReplace = false}>},
    {"memory_without_hard_links",
     memoryWorld<platform::MemoryDiskKind{.refusesToReplace = false, .hasHardLinks = false}>},
};

} // namespace test
