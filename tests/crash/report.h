// What was tried and what was found: alike findings stand together, each with the first line that
// brings it back.
#pragma once

#include <cstdio>
#include <map>
#include <string>

namespace crash {

class Report {
  public:
    void tried(const std::string& kind, int count = 1) { tried_[kind] += count; }
    void found(const std::string& what, const std::string& recipe) {
        auto& group = found_[what];
        if (group.count++ == 0)
            group.recipe = recipe;
    }
    void note(const std::string& line) { notes_ += line + "\n"; }
    bool isClean() const { return found_.empty(); }
    int all() const {
        int sum = 0;
        for (const auto& [kind, count] : tried_)
            sum += count;
        return sum;
    }

    void print() const {
        for (const auto& [what, group] : found_)
            std::printf("FOUND %d times: %s\n    crash-test %s\n", group.count, what.c_str(),
                        group.recipe.c_str());
        std::printf("%s", notes_.c_str());
        for (const auto& [kind, count] : tried_)
            std::printf("%8d %s\n", count, kind.c_str());
        std::printf("%8d in all, %zu findings\n", all(), found_.size());
    }

  private:
    struct Group {
        int count = 0;
        std::string recipe;
    };
    std::string notes_;
    std::map<std::string, int> tried_;
    std::map<std::string, Group> found_;
};

} // namespace crash
