// The file lister on a disk that fills up.
#include <sstream>

#include <gtest/gtest.h>

#include "support/faulty_disk.h"
#include "support/play.h"
#include "windows/frmFList.h"
#include "windows/frmMain.h"

namespace windows {
namespace {

TEST(FileLister, a_list_that_could_not_be_written_does_not_pass_for_whole) {
    const test::Game game;
    game.put("a file with a name long enough to be cut, and then some more of it", "");
    const auto disk = platform::makeDisk();
    test::FaultyDisk full(*disk, [](int number, const std::string& path) {
        if (number > 1)
            throw platform::Failure("write", path, "No space left on device");
    });
    std::istringstream none;
    headless::Script script(none);
    headless::SessionToolkit toolkit(script, [](const auto&) {});
    headless::RecordedPrograms programs(full, [](const auto&) {});
    frmMain main({full, toolkit, programs, game.folder(), "", ""});
    main.game().open(game.folder());
    frmFList whole(main);
    EXPECT_NO_THROW(whole.Form_Load());
    const auto& text = whole.txtFList.text();
    EXPECT_TRUE(text.starts_with("+ \\\r\n"));
    EXPECT_TRUE(text.ends_with("*****\r\nOut of onscreen space.  Check file for more.\r\n"))
        << text;
    EXPECT_FALSE(text.ends_with("\r\n*****\r\nOut of onscreen space.  Check file for more.\r\n"));
}

} // namespace
} // namespace windows
