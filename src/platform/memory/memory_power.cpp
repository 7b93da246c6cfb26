// What a power cut leaves, change by change, and copies of a whole disk to try it on.
#include <algorithm>
#include <unordered_map>

#include "memory_node.h"

namespace platform {

/// Names of one folder are told apart exactly: what happens to one says nothing of another, unless
/// the folder keeps an order.
bool MemoryDisk::NameChange::standsOn(const NameChange& earlier, bool inOrder) const {
    const auto meets = [&](const NodePtr& folder, const std::string& entry) {
        return folder && (inOrder ? earlier.touches(folder) : earlier.touches(folder, entry));
    };
    return earlier.node == node || meets(from, name) || meets(to, newName) ||
           (from && earlier.node == from) || (to && earlier.node == to) || earlier.touches(node);
}

void MemoryDisk::NameChange::takeBack() const {
    if (to)
        to->entries.erase(newName);
    if (replaced)
        to->entries[newName] = replaced;
    if (from)
        from->entries[name] = node;
    if (from && to)
        node->entry.changed = changed;
    else if (from)
        ++node->entry.names;
    else
        --node->entry.names;
}

void MemoryDisk::noteNamesSynced(const NodePtr& folder) {
    std::vector<const NameChange*> synced;
    std::vector<bool> goes(unsynced_.size());
    for (auto at = unsynced_.size(); at > 0; --at) {
        const auto& change = unsynced_[at - 1];
        goes[at - 1] = change.touches(folder) ||
                       std::any_of(synced.begin(), synced.end(), [&](const auto* later) {
                           return later->standsOn(change, false);
                       });
        if (goes[at - 1])
            synced.push_back(&change);
    }
    std::size_t at = 0;
    std::erase_if(unsynced_, [&](const auto& /*change*/) { return goes[at++]; });
}

void MemoryDisk::cutPower(const PowerLoss& loss) {
    std::vector<const NameChange*> lost;
    for (const auto& change : unsynced_) {
        const bool hangs = std::any_of(lost.begin(), lost.end(), [&](const auto* earlier) {
            return change.standsOn(*earlier, loss.inOrder);
        });
        if (hangs || !loss.nameArrives())
            lost.push_back(&change);
    }
    std::for_each(lost.rbegin(), lost.rend(), [](const auto* change) { change->takeBack(); });
    unsynced_.clear();
    const std::function<void(Node&)> settle = [&](Node& node) {
        if (node.entry.kind == RawKind::file && node.content != node.syncedContent)
            node.content = loss.content(node.syncedContent, node.content);
        node.syncedContent = node.content;
        node.syncedEntries = node.entries;
        for (const auto& [name, below] : node.entries)
            settle(*below);
    };
    settle(*root_);
}

std::shared_ptr<MemoryDisk> MemoryDisk::copy() const {
    std::unordered_map<const Node*, NodePtr> copies;
    const std::function<NodePtr(const NodePtr&)> copyOf = [&](const NodePtr& node) {
        if (!node)
            return node;
        if (const auto known = copies.find(node.get()); known != copies.end())
            return known->second;
        auto made = copies[node.get()] = std::make_shared<Node>(*node);
        for (auto* entries : {&made->entries, &made->syncedEntries})
            for (auto& [name, below] : *entries)
                below = copyOf(below);
        return made;
    };
    auto made = std::make_shared<MemoryDisk>(kind_);
    made->root_ = copyOf(root_);
    made->devices_ = devices_;
    made->nodes_ = nodes_;
    made->time_ = time_;
    made->unsynced_ = unsynced_;
    for (auto& change : made->unsynced_)
        for (auto* node : {&change.node, &change.from, &change.to, &change.replaced})
            *node = copyOf(*node);
    return made;
}

} // namespace platform
