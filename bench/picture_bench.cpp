// The list of many maps with what is known of them, and their pictures, against the same list
// without; the first picture against what a person feels as at once.
#include <filesystem>
#include <fstream>

#include <QAction>
#include <QApplication>
#include <QListView>
#include <QScrollBar>
#include <QTabBar>
#include <QTimer>

#include "bench.h"
#include "headless/session.h"
#include "packing/archive_writer.h"
#include "packing/map_writer.h"
#include "views/qt_toolkit.h"
#include "window_bench.h"
#include "windows/frmMain.h"

namespace {

namespace fs = std::filesystem;
using bench::find;
using bench::put;
using bench::Seconds;

constexpr int rounds = 7;
constexpr int releases = 5000;
constexpr int landscapes = 16;
/// What a person feels as at once; and between two pictures of something that moves.
constexpr Seconds atOnce = 0.2;
constexpr Seconds smooth = 0.033;
const fs::path root = fs::current_path() / "picture-bench-game";

/// Without archives the maps are names alone.
void makeGame(bool hasMaps) {
    bench::makeGame(root);
    std::vector<std::string> maps;
    for (unsigned seed = 0; seed < landscapes; ++seed)
        maps.push_back(packing::packArchive(
            {{"maps\\land.ota", "[GlobalHeader]{missionname=Land;numplayers=2, 4;size=4 x 4;}"},
             {"maps\\land.tnt", packing::mapFile(packing::drawMap(seed, 64, 64, 70))}}));
    for (int i = 0; i < releases; ++i)
        put(root / "Vexillum" / ("Map-A map with a name, number " + std::to_string(i)) / "a.ufo",
            hasMaps ? maps[static_cast<std::size_t>(i % landscapes)] : "");
}

/// The window over such a game directory, and the user before it.
class Catalogue {
  public:
    Catalogue() {
        toolkit_.show(main_);
        main_.Init();
    }

    void use(const std::function<void()>& gesture) {
        QTimer::singleShot(0, gesture);
        toolkit_.waitForUser();
        show();
    }
    void show() {
        toolkit_.refresher().flush(views::Pace::pausing);
        QApplication::processEvents();
        // Rows and tiles are laid out when they are painted.
        find<QListView>("lstList")->grab();
    }
    void waitWhile(const std::function<bool()>& lasts) {
        while (lasts()) {
            toolkit_.waitForTimer();
            show();
        }
    }
    Seconds open() {
        use([this] { tabs()->setCurrentIndex(5); });
        return bench::timeOf([this] { use([this] { tabs()->setCurrentIndex(4); }); });
    }
    windows::frmMain& main() { return main_; }
    static QTabBar* tabs() { return find<QTabBar>("tspMain"); }

  private:
    views::QtToolkit toolkit_;
    std::unique_ptr<platform::Disk> disk_ = platform::makeDisk();
    headless::RecordedPrograms programs_{*disk_, [](const auto&) {}};
    windows::frmMain main_{{*disk_, toolkit_, programs_, root.string(), "", ""}};
};

Seconds opened(Catalogue& catalogue) {
    std::vector<Seconds> times;
    times.reserve(rounds);
    for (int round = 0; round < rounds; ++round)
        times.push_back(catalogue.open());
    return bench::median(times);
}

Seconds openedWithout() {
    makeGame(false);
    Catalogue catalogue;
    return opened(catalogue);
}

/// Of a release that nobody has looked into, from the click to the picture.
Seconds firstPicture(Catalogue& catalogue) {
    auto* list = find<QListView>("lstList");
    const auto& picture = catalogue.main().picContents;
    std::vector<Seconds> times;
    times.reserve(rounds);
    for (int round = 0; round < rounds; ++round)
        times.push_back(bench::timeOf([&] {
            catalogue.use([&] {
                const auto row = list->model()->index(releases - 1 - round, 0);
                list->scrollTo(row);
                Q_EMIT list->clicked(row);
            });
            catalogue.waitWhile([&] { return picture.picture() == nullptr; });
        }));
    return bench::median(times);
}

Seconds scrolled(Catalogue& catalogue) {
    auto* list = find<QListView>("lstList");
    auto* bar = list->verticalScrollBar();
    constexpr int steps = 100;
    std::vector<Seconds> times;
    times.reserve(steps);
    for (int step = 0; step < steps; ++step)
        times.push_back(bench::timeOf([&] {
            bar->setValue(bar->value() + bar->pageStep() / 4);
            catalogue.show();
        }));
    return *std::max_element(times.begin(), times.end());
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const auto without = openedWithout();
    makeGame(true);
    {
        Catalogue catalogue;
        catalogue.open();
        bench::report("the first picture against what is felt as at once", firstPicture(catalogue),
                      atOnce, 1);
        catalogue.waitWhile([&] { return catalogue.main().tmrContents.enabled(); });
    }
    {
        Catalogue catalogue;
        catalogue.open();
        bench::report("the same at the next start, with a full cache", firstPicture(catalogue),
                      atOnce, 1);
    }
    Catalogue catalogue;
    bench::report("5,000 maps with pictures cached, against none", opened(catalogue), without, 1.2);
    find<QAction>("showsPictures")->trigger();
    bench::report("the same as tiles", opened(catalogue), without, 1.2);
    bench::report("the slowest step of scrolling through tiles", scrolled(catalogue), smooth, 1);
    fs::remove_all(root);
}
