// A tab with many releases against listing their folder and making rows in the toolkit; keys and
// clicks in it against what a person feels; the file lister against a bare walk that writes the
// same lines; how long the window is away at a time while many files move.
#include <filesystem>
#include <fstream>
#include <sstream>

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QStandardItemModel>
#include <QTabBar>
#include <QTimer>

#include "bench.h"
#include "headless/session.h"
#include "views/qt_toolkit.h"
#include "window_bench.h"
#include "windows/frmFList.h"
#include "windows/frmMain.h"

namespace {

namespace fs = std::filesystem;
using bench::find;
using bench::makeGame;
using bench::put;
using bench::Seconds;

constexpr int rounds = 7;
constexpr int releases = 5000;
constexpr int selected = 1000;
/// What a person feels as at once, and as a window that does not hang.
constexpr Seconds felt = 0.05;
constexpr Seconds hanging = 0.1;
const fs::path root = fs::current_path() / "catalogue-bench-game";

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

void key(QWidget* widget, int code, const QString& text = {}) {
    for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(kind, code, Qt::NoModifier, text);
        QApplication::sendEvent(widget, &event);
    }
}

void tab() {
    makeGame(root);
    std::string names;
    for (int i = 0; i < releases; ++i) {
        put(root / "Vexillum" / ("Mod-" + releaseName(i)) / "info.txt",
            "What is said about number " + std::to_string(i));
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
    auto* tabs = find<QTabBar>("tspMain");
    auto* list = find<QListView>("lstList");
    auto* filter = find<QLineEdit>("filter");
    auto* searchesAbout = find<QAction>("searchesAbout");
    // What a user does counts while the program waits for him.
    const auto use = [&](const std::function<void()>& gesture) {
        QTimer::singleShot(0, gesture);
        toolkit.waitForUser();
    };
    std::vector<Seconds> open, limit, tick, look, letter, second, about;
    for (int round = 0; round < rounds; ++round) {
        use([&] { tabs->setCurrentIndex(1); });
        open.push_back(shown([&] { use([&] { tabs->setCurrentIndex(3); }); }));
        limit.push_back(bareRows());
        look.push_back(shown([&] { use([&] { key(list, Qt::Key_End); }); }));
        tick.push_back(shown([&] { use([&] { key(list, Qt::Key_Space); }); }));
        letter.push_back(shown([&] { key(filter, 0, "9"); }));
        second.push_back(shown([&] { key(filter, 0, "9"); }));
        filter->clear();
        // The texts have been read by now, as after the first letter.
        searchesAbout->setChecked(true);
        key(filter, 0, "4");
        about.push_back(shown([&] { key(filter, 0, "2"); }));
        filter->clear();
        searchesAbout->setChecked(false);
    }
    bench::report("tab of 5,000 releases against listing and rows", bench::median(open),
                  bench::median(limit), 3);
    for (const auto& [what, times] :
         {std::pair("the tab", open), std::pair("a tick", tick),
          std::pair("a key that looks", look), std::pair("a filter's first key", letter),
          std::pair("its second", second), std::pair("one through the about texts", about)})
        bench::report(std::string(what) + " against what a person feels", bench::median(times),
                      felt, 1);
}

/// Beats whenever the events of the window have their turn, and tells the longest pause.
class Heart {
  public:
    Heart() {
        QObject::connect(&timer_, &QTimer::timeout, [this] { beat(); });
        timer_.start(1);
        sinceBeat_.start();
    }
    Seconds longest() {
        beat();
        return longest_;
    }

  private:
    void beat() {
        longest_ = std::max(longest_, static_cast<double>(sinceBeat_.nsecsElapsed()) * 1e-9);
        sinceBeat_.restart();
    }

    QTimer timer_;
    QElapsedTimer sinceBeat_;
    Seconds longest_ = 0;
};

void away() {
    makeGame(root);
    std::string names;
    for (int i = 0; i < 20'000; ++i)
        put(root / "Vexillum" / ("Mod-" + std::to_string(i / 500)) / std::to_string(i % 10) /
                ("file" + std::to_string(i)),
            "release");
    for (int release = 0; release < 40; ++release)
        names += std::to_string(release) + "\r\n";
    put(root / "Vexillum/VXL-Sel/selMods.txt", names);
    const auto disk = platform::makeDisk();
    headless::RecordedPrograms programs(*disk, [](const auto&) {});
    std::vector<Seconds> apply, reset;
    for (int round = 0; round < rounds; ++round) {
        {
            views::QtToolkit toolkit;
            windows::frmMain main({*disk, toolkit, programs, root.string(), "", ""});
            toolkit.show(main);
            main.Init();
            Heart heart;
            main.moveFiles();
            apply.push_back(heart.longest());
            main.saveSels();
        }
        views::QtToolkit toolkit;
        windows::frmMain main({*disk, toolkit, programs, root.string(), "", ""});
        toolkit.show(main);
        Heart heart;
        main.Init();
        reset.push_back(heart.longest());
    }
    bench::report("the longest pause while 20,000 files are applied",
                  *std::ranges::max_element(apply), hanging, 1);
    bench::report("and while they are moved back", *std::ranges::max_element(reset), hanging, 1);
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
    makeGame(root);
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
    away();
    lister();
    fs::remove_all(root);
}
