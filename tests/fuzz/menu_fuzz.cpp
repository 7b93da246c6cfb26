// Any text as a GUI page and as a download TDF, and the table through compression to its files.
#include <cstdint>
#include <cstdlib>

#include "formats/menu_files.h"
#include "platform/text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    const bool compress = (data[0] & 1U) != 0;
    const bool small = (data[0] & 2U) != 0;
    formats::MenuTable table;
    formats::GuiPageReader page(table, "XYZ", compress);
    formats::DownloadReader download(table);
    for (const auto& line : platform::splitLines(text)) {
        page.readLine(line);
        download.readLine(line);
    }
    if (compress)
        table.compress();
    formats::menuListText(table.menus());
    formats::DownloadTable downloads;
    for (const auto& menu : table.menus())
        downloads.addMenu(menu, small);
    for (const auto& unit : downloads.downloads()) {
        formats::downloadText(unit);
        for (const auto& entry : unit.entries)
            if (entry.menu < 2 || entry.menu > 8 || entry.button < 0 || entry.button > 11)
                std::abort();
    }
    return 0;
}
