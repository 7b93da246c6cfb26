// A disk that forwards every call until its time has come.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/disk.h"

namespace test {

/// Thrown where the power goes: nothing in the program catches it.
struct PowerCut {};

/// Counts the changes asked for and lets a test step in before each.
class FaultyDisk final : public platform::Disk {
  public:
    using BeforeChange = std::function<void(int number, const std::string& path)>;

    FaultyDisk(platform::Disk& disk, BeforeChange beforeChange)
        : disk_(disk), beforeChange_(std::move(beforeChange)) {}

    int changes() const { return changes_; }

    void setGameDirectory(const std::string& folder) override { disk_.setGameDirectory(folder); }
    bool isInside(std::string_view path) const override { return disk_.isInside(path); }
    std::string systemPath(const std::string& path) override { return disk_.systemPath(path); }
    platform::EntryKind kindOf(const std::string& path) override { return disk_.kindOf(path); }
    std::vector<std::string> folderNames(const std::string& path) override {
        return disk_.folderNames(path);
    }
    std::vector<std::string> fileNames(const std::string& path) override {
        return disk_.fileNames(path);
    }
    bool leadsThroughLink(const std::string& folder, const std::string& relative) override {
        return disk_.leadsThroughLink(folder, relative);
    }
    std::string readFile(const std::string& path) override { return disk_.readFile(path); }
    std::unique_ptr<platform::FileView> mapFile(const std::string& path) override {
        return disk_.mapFile(path);
    }
    void writePieces(const std::string& path,
                     const std::function<void(const platform::PieceSink&)>& produce) override {
        change(path);
        disk_.writePieces(path, produce);
    }
    void writeFile(const std::string& path, std::string_view bytes) override {
        change(path);
        disk_.writeFile(path, bytes);
    }
    void replaceFile(const std::string& path, std::string_view bytes) override {
        change(path);
        disk_.replaceFile(path, bytes);
    }
    bool moveEntry(const std::string& from, const std::string& to) override {
        change(from);
        return disk_.moveEntry(from, to);
    }
    bool renameEntry(const std::string& path, const std::string& newName) override {
        change(path);
        return disk_.renameEntry(path, newName);
    }
    void copyFile(const std::string& from, const std::string& to,
                  const platform::CopyProgress& onProgress) override {
        change(to);
        disk_.copyFile(from, to, onProgress);
    }
    void removeFile(const std::string& path) override {
        change(path);
        disk_.removeFile(path);
    }
    void makeFolder(const std::string& path) override {
        change(path);
        disk_.makeFolder(path);
    }
    void removeFolder(const std::string& path) override {
        change(path);
        disk_.removeFolder(path);
    }
    void removeTree(const std::string& path) override {
        change(path);
        disk_.removeTree(path);
    }
    void flush() override { disk_.flush(); }

  private:
    void change(const std::string& path) { beforeChange_(++changes_, path); }

    platform::Disk& disk_;
    BeforeChange beforeChange_;
    int changes_ = 0;
};

} // namespace test
