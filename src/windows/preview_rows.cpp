// Rows are told by texts of a few words; the whole story of a place is that of its contenders.
#include "preview_rows.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <unordered_map>
#include <unordered_set>

#include "platform/text.h"
#include "releases/tally.h"

namespace windows {
namespace {

using cycle::Preview;
using cycle::Why;
using Row = TreeList::Row;

std::string counted(int number, const std::string& one, const std::string& several) {
    return platform::withSeparators(static_cast<std::uint64_t>(number)) + " " +
           (number == 1 ? one : several);
}

/// From what is most in need of a look to what is least.
constexpr std::array byWeight = {Why::open, Why::chosen, Why::remembered, Why::answered, Why::same};

Why weightiest(const Preview::File& file) {
    for (const auto why : byWeight)
        if (std::ranges::any_of(file.rivals, [&](const auto& rival) { return rival.why == why; }))
            return why;
    return Why::answered;
}

std::string noteOf(const Preview::File& file) {
    if (file.rivals.empty())
        return {};
    switch (weightiest(file)) {
    case Why::open:
        return "to decide";
    case Why::chosen:
    case Why::chosenAsGame:
        return "chosen";
    case Why::remembered:
        return "remembered";
    case Why::same:
        return "identical";
    case Why::answered:
        break;
    }
    return {};
}

TreeList::Look lookOf(const Preview::File& file) {
    if (file.isOpen())
        return TreeList::Look::open;
    if (file.isConflict())
        return TreeList::Look::decided;
    return file.owner.isGame() ? TreeList::Look::quiet : TreeList::Look::plain;
}

std::string othersOf(const Preview::File& file) {
    std::string names;
    for (const auto& contender : file.contenders())
        if (contender != file.owner)
            names += (names.empty() ? "" : ", ") + nameOf(contender);
    return names;
}

std::string leafOf(const std::string& path) {
    return path.substr(path.rfind('\\') + 1);
}

/// Folders come with the first row below them.
class Tree {
  public:
    explicit Tree(const Preview& preview) {
        for (const auto& folder : preview.newFolders)
            new_.insert(platform::foldCase(folder));
    }

    void add(const std::string& path, Row row) {
        row.parent = folderOf(path);
        if (row.look == TreeList::Look::open)
            for (int at = row.parent; at >= 0; at = nodes_[index(at)].row.parent)
                nodes_[index(at)].row.showsChildren = true;
        nodes_.push_back({path, false, std::move(row)});
    }
    void addFolder(const std::string& path) { folderOf(path + "\\"); }

    std::vector<Row> take() {
        std::vector<int> order(nodes_.size());
        std::iota(order.begin(), order.end(), 0);
        const auto isBefore = [this](int one, int other) {
            const auto& a = nodes_[index(one)];
            const auto& b = nodes_[index(other)];
            return a.isFolder != b.isFolder ? a.isFolder
                                            : platform::lessIgnoringCase(a.path, b.path);
        };
        std::ranges::stable_sort(order, isBefore);
        std::vector<int> places(nodes_.size());
        std::vector<Row> rows;
        rows.reserve(nodes_.size());
        for (const int at : order) {
            places[index(at)] = static_cast<int>(rows.size());
            rows.push_back(std::move(nodes_[index(at)].row));
            if (auto& parent = rows.back().parent; parent >= 0)
                parent = places[index(parent)];
        }
        return rows;
    }

  private:
    struct Node {
        std::string path;
        bool isFolder = false;
        Row row;
    };

    static std::size_t index(int at) { return static_cast<std::size_t>(at); }

    /// The row of the folder that holds an entry, or -1.
    int folderOf(const std::string& path) {
        const auto cut = path.rfind('\\');
        if (cut == std::string::npos)
            return -1;
        const auto folder = path.substr(0, cut);
        if (const auto known = folders_.find(folder); known != folders_.end())
            return known->second;
        const int parent = folderOf(folder);
        const auto note = new_.contains(platform::foldCase(folder)) ? "new folder" : "";
        nodes_.push_back(
            {folder,
             true,
             {platform::shownPath(folder + "\\"), parent, {leafOf(folder), "", "", note}}});
        return folders_[folder] = static_cast<int>(nodes_.size()) - 1;
    }

    std::unordered_set<std::string> new_; ///< case folded
    std::unordered_map<std::string, int> folders_;
    std::vector<Node> nodes_;
};

std::string whyText(Why why, const cycle::Owner& winner) {
    switch (why) {
    case Why::open:
        return "you will be asked; Yes is for " + nameOf(winner);
    case Why::chosen:
    case Why::chosenAsGame:
        return "you chose " + nameOf(winner);
    case Why::remembered:
        return "a remembered answer is for " + nameOf(winner);
    case Why::same:
        return "the two are identical";
    case Why::answered:
        break;
    }
    return {};
}

std::string lotOf(const Preview::Rival& rival, const Preview::File& file) {
    if (!rival.waitsAt.empty())
        return "makes room, and waits at " + platform::shownPath(rival.waitsAt);
    if (rival.path.empty())
        return "there is none";
    if (!platform::equalIgnoringCase(leafOf(rival.path), leafOf(file.path)))
        return "stays under its own name";
    return "is not used";
}

} // namespace

std::string nameOf(const cycle::Owner& owner) {
    return owner.isGame() ? "the game" : owner.text();
}

std::string figuresOf(const Preview& preview) {
    const auto conflicts = preview.conflicts();
    auto text = counted(static_cast<int>(preview.files.size()), "file", "files") + ", " +
                releases::sizeText(preview.size()) + ".  " +
                (conflicts == 0 ? "No conflicts" : counted(conflicts, "conflict", "conflicts"));
    if (conflicts > 0)
        text += preview.open() == 0 ? ", all decided"
                                    : ", " + counted(preview.open(), "to decide", "to decide");
    text += ".  " + counted(preview.displaced(), "file", "files") + " of the game " +
            (preview.displaced() == 1 ? "makes" : "make") + " room.";
    if (!preview.newFolders.empty())
        text += "  " +
                counted(static_cast<int>(preview.newFolders.size()), "new folder", "new folders") +
                ".";
    if (!preview.blocked.empty())
        text += "  " +
                counted(static_cast<int>(preview.blocked.size()), "file cannot", "files cannot") +
                " be moved.";
    return text;
}

std::vector<Row> treeOf(const Preview& preview, bool onlyConflicts) {
    Tree tree(preview);
    if (!onlyConflicts)
        for (const auto& folder : preview.newFolders)
            tree.addFolder(folder);
    for (const auto& file : preview.files)
        if (!onlyConflicts || file.isConflict())
            tree.add(file.path,
                     {platform::shownPath(file.path),
                      -1,
                      {leafOf(file.path), nameOf(file.owner), othersOf(file), noteOf(file)},
                      lookOf(file),
                      false});
    for (const auto& blocked : preview.blocked)
        tree.add(blocked.to, {platform::shownPath(blocked.from),
                              -1,
                              {leafOf(blocked.to), nameOf(blocked.owner), "",
                               "cannot be moved: something is in its way"},
                              TreeList::Look::open,
                              false});
    return tree.take();
}

std::string fateOf(const Preview::File& file, const cycle::Owner& contender) {
    if (contender == file.owner)
        return file.rivals.empty() ? "lies here"
                                   : "lies here: " + whyText(weightiest(file), file.owner);
    const auto rival = std::ranges::find(file.rivals, contender, &Preview::Rival::owner);
    if (rival == file.rivals.end())
        return "is not used";
    return lotOf(*rival, file) + ": " + whyText(rival->why, rival->lostTo);
}

} // namespace windows
