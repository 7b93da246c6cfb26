// Every TAM type as every type of release, through the wizard.
#include <gtest/gtest.h>

#include "support/play.h"
#include "support/system.h"

namespace {

struct Pack {
    const char* type;
    const char* dataFile;
    const char* data;
    std::vector<std::string> beside;
    const char* name;
    std::vector<std::string> files; ///< of the release
};

const Pack packs[] = {
    {"TAM TC",
     "c.tc",
     "Big\r\nText\r\nany\r\nm.hpi m.hpi\r\n",
     {"m.hpi"},
     "Big",
     {"info.txt", "ccodes.txt", "m.hpi"}},
    {"TAM AI",
     "a.ai",
     "Clever\r\nText\r\nany\r\nai\\default.txt\r\n",
     {"a(1)"},
     "Clever",
     {"info.txt", "ccodes.txt", "ai/default.txt"}},
    {"TAM Mutator",
     "}{m.tam",
     "Strange\r\nText\r\nany\r\n",
     {"}{m.ccx"},
     "Strange",
     {"info.txt", "ccodes.txt", "}{m.ccx"}},
    {"TAM Map", "map.ufo", "archive", {"map.txt"}, "map", {"map.ufo", "info.txt"}},
    {"TAM Unit", "unit.ufo", "archive", {}, "unit", {"unit.ufo"}},
    {"TAM Unit Pack",
     "p.pac",
     "Many\r\nText\r\nu1\r\nu2\r\n",
     {"u1.ufo", "u1.txt", "u2.ufo"},
     "Many",
     {"info.txt", "u1.ufo", "u1.txt", "u2.ufo"}},
};

TEST(TamPairsTest, every_pair_of_types_becomes_a_release) {
    for (const auto& pack : packs)
        for (const std::string type : {"TC", "AI", "Race", "Mod", "Map", "Unit"}) {
            const test::Game game;
            game.put(std::string("pack/") + pack.dataFile, pack.data);
            for (const auto& file : pack.beside)
                game.put("pack/" + file, file);
            const auto session = test::play(
                game, "click mnuUconverter\npick cbo1TAMtype " + std::string(pack.type) +
                          "\npick cbo1VXLtype VXL " + type + "\nclick cmd1Next\nanswer " +
                          game.folder() + "/pack/" + pack.dataFile +
                          "\nclick cmd2Browse\nclick cmd2Next\ndump\nclick cmd3next\n");
            const auto where = std::string(pack.type) + " as " + type;
            EXPECT_FALSE(session.badLine) << where << ": " << *session.badLine;
            EXPECT_EQ(test::fieldOf(session, "message", "text").size(), 1U) << where;
            for (const auto& event : session.events)
                if (event["event"] == "state") {
                    EXPECT_EQ(event["controls"]["lst3files"]["items"].size(), pack.files.size())
                        << where;
                }
            for (const auto& file : pack.files)
                EXPECT_TRUE(game.has("Vexillum/" + type + "-" + pack.name + "/" + file))
                    << where << ": " << file;
        }
}

TEST(TamLinkTest, a_member_behind_a_link_is_not_read) {
    const test::Game game;
    game.put("secret/file.txt", "secret");
    game.put("pack/a.tc", "Linked\r\nText\r\nany\r\nway\\file.txt got.txt\r\n");
    if (!test::makeLink("../secret", game.at("pack/way")))
        GTEST_SKIP() << "the system makes no links";
    const auto session = test::play(
        game, "click mnuUconverter\npick cbo1TAMtype TAM TC\npick cbo1VXLtype VXL TC\n"
              "click cmd1Next\nanswer " +
                  game.folder() + "/pack/a.tc\nclick cmd2Browse\nclick cmd2Next\nclick cmd3next\n");
    EXPECT_EQ(test::fieldOf(session, "message", "text").back(), "Error: something bad happened");
    EXPECT_FALSE(game.has("Vexillum/TC-Linked/got.txt"));
}

} // namespace
