// A stand-in for the game: shows which files it finds beside it, in a window where there is a
// display and as text where there is none. The first line of each sample file names its owner.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "platform/disk.h"

namespace {

namespace fs = std::filesystem;

struct FoundFile {
    std::string path;
    std::string owner;
};

std::string firstLine(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::string line;
    std::getline(file, line);
    const bool isText = std::all_of(line.begin(), line.end(),
                                    [](char c) { return c >= ' ' || c == '\t' || c == '\r'; });
    return isText ? line : "(a binary file)";
}

std::vector<FoundFile> findFiles(const fs::path& game) {
    std::vector<FoundFile> files;
    for (auto at = fs::recursive_directory_iterator(game); at != fs::end(at); ++at) {
        if (at.depth() == 0 && at->path().filename() == "Vexillum")
            at.disable_recursion_pending();
        else if (at->is_regular_file())
            files.push_back({fs::relative(at->path(), game).string(), firstLine(at->path())});
    }
    std::sort(files.begin(), files.end(),
              [](const auto& a, const auto& b) { return a.path < b.path; });
    return files;
}

/// A line behind the program proper says whose EXE this is.
std::string ownName() {
    std::ifstream self("/proc/self/exe", std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(self), {});
    const std::string mark = std::string("\nEXE ") + "OF ";
    const auto at = bytes.rfind(mark);
    return at == std::string::npos ? "the sample game" : bytes.substr(at + mark.size());
}

int showWindow(int argc, char** argv, const std::vector<FoundFile>& files,
               const std::string& name) {
    QApplication application(argc, argv);
    QWidget window;
    window.setWindowTitle("Sample game");
    auto* column = new QVBoxLayout(&window);
    column->addWidget(new QLabel(QString::fromStdString(
        "This window stands in for the game. It is " + name + ", and found these files:")));
    auto* tree = new QTreeWidget();
    tree->setHeaderLabels({"File", "First line"});
    tree->setRootIsDecorated(false);
    for (const auto& file : files)
        tree->addTopLevelItem(new QTreeWidgetItem(
            {QString::fromStdString(file.path), QString::fromStdString(file.owner)}));
    tree->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    column->addWidget(tree);
    window.resize(720, 520);
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    const auto files = findFiles(platform::programFolder());
    const auto name = ownName();
    if (!qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return showWindow(argc, argv, files, name);
    std::cout << "This is " << name << ". It found:\n";
    for (const auto& file : files)
        std::cout << "  " << file.path << "  <- " << file.owner << '\n';
}
