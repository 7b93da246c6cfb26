// Apply and reset of many files, against a bare loop of rename over the same files, and with the
// real windows against none.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <sys/resource.h>
#include <unistd.h>

#include "bench.h"
#include "cycle/preview.h"
#include "cycle/selection_files.h"
#include "headless/session.h"
#include "windows/frmMain.h"

#ifdef VEXILLUM_WINDOWS
#include <QApplication>

#include "views/qt_toolkit.h"
#endif

namespace {

namespace fs = std::filesystem;
using bench::Seconds;

constexpr int rounds = 7;
constexpr int gameFiles = 2000;
constexpr int filesInFolder = 50;
constexpr int foldersInRelease = 10;

/// A game directory and releases, made anew for each size.
class Tree {
  public:
    explicit Tree(int files) : root_(fs::current_path() / "cycle-bench-game") {
        fs::remove_all(root_);
        for (const auto* folder : {"VXL-Sel", "VXL-Changes", "TC-Cavedog TA", "AI-Cavedog AI"})
            fs::create_directories(root_ / "Vexillum" / folder);
        for (const auto* name : {"TC", "AI", "Races", "Maps", "Units", "Trlx"})
            put("Vexillum/VXL-Sel/sel" + std::string(name) + ".txt", "");
        put("Vexillum/VXL-Changes/Internal.txt", "MKDIRS\r\nMOVES\r\n");
        for (int i = 0; i < gameFiles; ++i)
            put("game" + std::to_string(i % 20) + "/file" + std::to_string(i), "game");
        std::string names;
        for (int i = 0; i < files; ++i)
            addReleaseFile(i, names);
        put("Vexillum/VXL-Sel/selMods.txt", names);
        selection_ = names;
        ::sync();
    }
    ~Tree() { fs::remove_all(root_); }
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    const fs::path& root() const { return root_; }

    /// The limit: the same files moved there, and back, by rename alone.
    std::pair<Seconds, Seconds> bareMoves() const {
        for (int i = 0; i < foldersInRelease; ++i)
            fs::create_directory(root_ / ("sub" + std::to_string(i)));
        ::sync();
        const auto there = bench::timeOf([&] {
            for (const auto& [from, to] : moves_)
                std::rename(from.c_str(), to.c_str());
        });
        ::sync();
        const auto back = bench::timeOf([&] {
            for (const auto& [from, to] : moves_)
                std::rename(to.c_str(), from.c_str());
        });
        for (int i = 0; i < foldersInRelease; ++i)
            fs::remove(root_ / ("sub" + std::to_string(i)));
        return {there, back};
    }

    void select() const { put("Vexillum/VXL-Sel/selMods.txt", selection_); }
    void forgetJournal() const {
        put("Vexillum/VXL-Changes/Internal.txt", "MKDIRS\r\nMOVES\r\n");
        for (const auto* file : {"Human.txt", "State.txt"})
            fs::remove(root_ / "Vexillum/VXL-Changes" / file);
    }

  private:
    void addReleaseFile(int i, std::string& names) {
        const int folder = i / filesInFolder;
        const int release = folder / foldersInRelease;
        if (release == releases_) {
            ++releases_;
            names += std::to_string(release) + "\r\n";
        }
        const auto file =
            "sub" + std::to_string(folder % foldersInRelease) + "/release" + std::to_string(i);
        const auto from = "Vexillum/Mod-" + std::to_string(release) + "/" + file;
        put(from, "release");
        moves_.emplace_back((root_ / from).string(), (root_ / file).string());
    }

    void put(const std::string& path, const std::string& content) const {
        fs::create_directories((root_ / path).parent_path());
        std::ofstream(root_ / path, std::ios::binary) << content;
    }

    fs::path root_;
    int releases_ = 0;
    std::string selection_;
    std::vector<std::pair<std::string, std::string>> moves_;
};

class Unasked final : public platform::Questions {
  public:
    std::size_t ask(const platform::Question& question, platform::MessageRow* /*row*/) override {
        return question.defaultButton;
    }
};

/// Makes the toolkit of one run.
using MakeToolkit = std::function<std::unique_ptr<windows::Toolkit>()>;

struct Cycle {
    Seconds apply = 0;
    Seconds reset = 0;
    Seconds start = 0; ///< with nothing to undo
};

Cycle cycle(const Tree& tree, const MakeToolkit& makeToolkit) {
    tree.select();
    tree.forgetJournal();
    Cycle times;
    const auto disk = platform::makeDisk();
    headless::RecordedPrograms programs(*disk, [](const auto&) {});
    {
        const auto toolkit = makeToolkit();
        windows::frmMain main({*disk, *toolkit, programs, tree.root().string(), "", ""});
        times.start = bench::timeOf([&] { main.Init(); });
        ::sync();
        times.apply = bench::timeOf([&] { main.moveFiles(); });
        main.saveSels();
    }
    ::sync();
    const auto toolkit = makeToolkit();
    windows::frmMain main({*disk, *toolkit, programs, tree.root().string(), "", ""});
    times.reset = bench::timeOf([&] { main.Init(); });
    return times;
}

/// Nobody reads a transcript.
class Silent final : public headless::SessionToolkit {
  public:
    using SessionToolkit::SessionToolkit;
    void logged(const std::string& /*line*/) override {}
};

class Headless {
  public:
    std::unique_ptr<windows::Toolkit> operator()() {
        return std::make_unique<Silent>(script_, [](const auto& /*event*/) {});
    }

  private:
    std::istringstream none_;
    headless::Script script_{none_};
};

#ifdef VEXILLUM_WINDOWS
/// The real windows; the second for which the log stands is cut short.
class Hurried final : public views::QtToolkit {
  public:
    void load(windows::Window& window) override {
        QtToolkit::load(window);
        windows_.push_back(&window);
    }
    void waitForTimer() override {
        for (auto* window : windows_)
            for (auto* control : window->controls())
                if (auto* timer = dynamic_cast<windows::Timer*>(control);
                    timer != nullptr && timer->enabled())
                    timer->onTick();
    }

  private:
    std::vector<windows::Window*> windows_;
};
#endif

struct Medians {
    Seconds apply, reset, start, there, back;
};

Medians measure(const Tree& tree, const MakeToolkit& makeToolkit) {
    std::vector<Seconds> apply, reset, start, there, back;
    for (int i = 0; i < rounds; ++i) {
        const auto bare = tree.bareMoves();
        there.push_back(bare.first);
        back.push_back(bare.second);
        const auto times = cycle(tree, makeToolkit);
        apply.push_back(times.apply);
        reset.push_back(times.reset);
        start.push_back(times.start);
    }
    return {bench::median(apply), bench::median(reset), bench::median(start), bench::median(there),
            bench::median(back)};
}

/// The preview of a launch, against a list of the same files as a system's own tool makes it: the
/// names and sizes of all that lies in the game directory.
void measurePreview(const Tree& tree) {
    std::vector<Seconds> previews;
    std::vector<Seconds> listings;
    std::vector<Seconds> names;
    tree.select();
    for (int i = 0; i < rounds; ++i) {
        std::uintmax_t bytes = 0;
        std::size_t letters = 0;
        listings.push_back(bench::timeOf([&] {
            for (const auto& entry : fs::recursive_directory_iterator(tree.root()))
                if (entry.is_regular_file())
                    bytes += entry.file_size();
        }));
        names.push_back(bench::timeOf([&] {
            for (const auto& entry : fs::recursive_directory_iterator(tree.root()))
                letters += entry.path().native().size();
        }));
        const auto disk = platform::makeDisk();
        platform::NoLog log;
        Unasked unasked;
        releases::GameDirectory game(*disk, log, unasked);
        game.open(tree.root().string());
        cycle::Selection selection;
        cycle::readSels(game, selection);
        std::size_t files = 0;
        previews.push_back(bench::timeOf([&] {
            files = cycle::makePreview(game, selection, {}, nullptr, nullptr).files.size();
        }));
        if (files < 20'000 || bytes == 0 || letters == 0)
            std::abort();
    }
    bench::report("preview, 20,000 files, against listing them", bench::median(previews),
                  bench::median(listings), 3);
    std::printf("  (their names alone are listed in %.1f ms)\n", bench::median(names) * 1000);
}

} // namespace

int main(int argc, char** argv) {
    Headless headless;
    const MakeToolkit noScreen = [&headless] { return headless(); };
    if (argc > 1 && std::string_view(argv[1]) == "profile") {
        const Tree tree(20'000);
        for (int i = 0; i < 3; ++i)
            measure(tree, noScreen);
        return 0;
    }
    if (argc > 1 && std::string_view(argv[1]) == "preview") {
        measurePreview(Tree(20'000));
        return 0;
    }
    {
        const Tree tree(20'000);
        measurePreview(tree);
        const auto times = measure(tree, noScreen);
        bench::report("apply, 20,000 files, against bare renames", times.apply, times.there, 1.2);
        bench::report("reset, 20,000 files, against bare renames", times.reset, times.back, 1.2);
        struct rusage usage {};
        ::getrusage(RUSAGE_SELF, &usage);
        std::printf("peak memory %ld MB (goal: under 200)\n", usage.ru_maxrss / 1024);
#ifdef VEXILLUM_WINDOWS
        ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
        const QApplication application(argc, argv);
        const auto shown = measure(tree, [] { return std::make_unique<Hurried>(); });
        bench::report("apply with the real window, against none", shown.apply, times.apply, 1.15);
        // Opening the catalogue's window is no part of the reset.
        bench::report("reset with the real window, against none", shown.reset - shown.start,
                      times.reset - times.start, 1.15);
#else
        static_cast<void>(argc);
        static_cast<void>(argv);
#endif
    }
    for (const int files : {1000, 5000, 20'000}) {
        const Tree tree(files);
        const auto times = measure(tree, noScreen);
        std::printf("%6d files: apply %6.2f us a file, reset %6.2f us a file, bare %6.2f / %6.2f\n",
                    files, times.apply / files * 1e6, times.reset / files * 1e6,
                    times.there / files * 1e6, times.back / files * 1e6);
    }
}
