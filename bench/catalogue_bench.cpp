// A tab with many releases against listing their folder and making rows in the toolkit; a click in
// it; the file lister against a bare walk that writes the same lines.
#include <filesystem>
#include <fstream>
#include <sstream>

#include <QApplication>
#include <QListView>
#include <QStandardItemModel>

#include "bench.h"
#include "headless/session.h"
#include "views/qt_toolkit.h"
#include "windows/frmFList.h"
#include "windows/frmMain.h"

namespace {

namespace fs = std::filesystem;
using bench::Seconds;

constexpr int rounds = 7;
constexpr int releases = 5000;
constexpr int selected = 1000;
constexpr Seconds felt = 0.05;
const fs::path root = fs::current_path() / "catalogue-bench-game";

void put(const fs::path& path, const std::string& content) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
}

void makeGame() {
    fs::remove_all(root);
    for (const auto* folder : {"TC-Cavedog TA", "AI-Cavedog AI"})
        fs::create_directories(root / "Vexillum" / folder);
    for (const auto* name : {"TC", "AI", "Races", "Mods", "Maps", "Units", "Trlx"})
        put(root / "Vexillum/VXL-Sel" / ("sel" + std::string(name) + ".txt"), "");
    put(root / "Vexillum/VXL-Changes/Internal.txt", "MKDIRS\r\nMOVES\r\n");
}

std::string releaseName(int i) {
    return "A modification with a name of some length, number " + std::to_string(i);
}

/// The limit: the same rows by the means of the toolkit, out of a listing of the folder.
Seconds bareRows() {
    QListView view;
    view.setUniformItemSizes(true);
    view.resize(300, 400);
    view.show();
    QApplication::processEvents();
    return bench::timeOf([&] {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(root / "Vexillum"))
            if (entry.is_directory() && entry.path().filename().string().starts_with("Mod-"))
                names.push_back(entry.path().filename().string().substr(4));
        std::sort(names.begin(), names.end());
        QStandardItemModel model;
        for (std::size_t i = 0; i < names.size(); ++i) {
            auto* item = new QStandardItem(QString::fromStdString(names[i]));
            item->setCheckable(true);
            item->setCheckState(i < selected ? Qt::Checked : Qt::Unchecked);
            model.appendRow(item);
        }
        view.setModel(&model);
        view.repaint();
        view.setModel(nullptr);
    });
}

void tab() {
    makeGame();
    std::string names;
    for (int i = 0; i < releases; ++i) {
        fs::create_directory(root / "Vexillum" / ("Mod-" + releaseName(i)));
        if (i < selected)
            names += releaseName(i) + "\r\n";
    }
    put(root / "Vexillum/VXL-Sel/selMods.txt", names);
    views::QtToolkit toolkit;
    const auto disk = platform::makeDisk();
    headless::RecordedPrograms programs(*disk, [](const auto&) {});
    windows::frmMain main({*disk, toolkit, programs, root.string(), "", ""});
    toolkit.show(main);
    main.Init();
    const auto shown = [&](auto&& work) {
        return bench::timeOf([&] {
            work();
            toolkit.refresher().flush(views::Pace::pausing);
            QApplication::processEvents();
        });
    };
    std::vector<Seconds> open, limit, click;
    for (int round = 0; round < rounds; ++round) {
        main.tspMain.click("Total Conversions");
        open.push_back(shown([&] { main.tspMain.click("Mods"); }));
        click.push_back(shown([&] { main.lstList.click(releaseName(releases / 2)); }));
        limit.push_back(bareRows());
    }
    bench::report("tab of 5,000 releases against listing and rows", bench::median(open),
                  bench::median(limit), 3);
    bench::report("a click in it against what a person feels", bench::median(click), felt, 1);
}

/// The limit: every entry's line, without an order.
void bareWalk() {
    std::ofstream list(root / "FileList.txt", std::ios::binary);
    const auto start = root.string().size();
    for (fs::recursive_directory_iterator at(root), end; at != end; ++at) {
        for (int level = 0; level <= at.depth(); ++level)
            list << "| ";
        list << (at->is_directory() ? "+ " : "> ") << at->path().string().substr(start) << "\r\n";
    }
}

void lister() {
    makeGame();
    for (int i = 0; i < 100'000; ++i)
        put(root / ("folder" + std::to_string(i / 1000)) / ("sub" + std::to_string(i / 100 % 10)) /
                ("file" + std::to_string(i)),
            "");
    std::istringstream none;
    headless::Script script(none);
    headless::SessionToolkit toolkit(script, [](const auto&) {});
    const auto disk = platform::makeDisk();
    headless::RecordedPrograms programs(*disk, [](const auto&) {});
    windows::frmMain main({*disk, toolkit, programs, root.string(), "", ""});
    main.Init();
    std::vector<Seconds> ours, limit;
    for (int round = 0; round < rounds; ++round) {
        windows::frmFList list(main);
        ours.push_back(bench::timeOf([&] { list.Form_Load(); }));
        limit.push_back(bench::timeOf(bareWalk));
    }
    bench::report("lister, 100,000 files, against a bare walk", bench::median(ours),
                  bench::median(limit), 3);
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    tab();
    lister();
    fs::remove_all(root);
}
