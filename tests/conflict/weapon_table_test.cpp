// Lines of weapon files and what they claim.
#include <gtest/gtest.h>

#include "conflict/weapon_table.h"
#include "platform/text.h"

namespace conflict {
namespace {

TEST(WeaponTable, lines_claim_ids_for_the_last_section_head) {
    struct Row {
        std::string_view text;
        int id;
        std::string_view name;
    };
    const Row rows[] = {
        {"[GUN]\nid=12;", 12, "GUN"},
        {"[GUN];\n\t ID=12 ;", 12, "GUN"},
        {"[GUN] {\nid=12", 12, "GUN] "},
        {"[GUN]\nid =12", 12, "Unused"},
        {"[GUN]\n;id=12", 12, "Unused"},
        {"[GUN]\nid=", 0, "GUN"},
        {"[GUN]\nid=11.5", 12, "GUN"},
        {"[GUN]\nid=256", 256, "GUN"},
        {"[GUN]\nid=257\nid=-1\nid=99999999999999999999", 0, "Unused"},
        {"id=12\n[GUN]\nid=12", 12, " *CONFLICT* GUN"},
        {"[GUN]\nid=12\nid=12", 12, "GUN *CONFLICT* GUN"},
        {"[A]\nid=12\n[B]\nid=12\n[C]\nid=12;x", 12, "A *CONFLICT* B *CONFLICT* C"},
        {"[GUN\nid=12", 12, "GU"},
        {"[\nid=12", 12, ""},
        {"[]\nid=12", 12, ""},
        {"xid=12", 12, "Unused"},
    };
    for (const auto& row : rows) {
        WeaponTable table;
        for (const auto& line : platform::splitLines(row.text))
            table.readLine(line);
        EXPECT_EQ(table[row.id], row.name) << row.text;
    }
    EXPECT_EQ(WeaponTable().reportLine(255), "ID 255: Unused\r\n");
}

} // namespace
} // namespace conflict
