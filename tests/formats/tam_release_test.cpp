// What the data files of TAM releases say, every way of ending early, and names of releases.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "formats/display_name.h"
#include "formats/tam_release.h"

namespace formats {
namespace {

/// A conversion in one line: what is told, made, written and copied.
std::string told(TamType type, const std::string& file, const std::string& data) {
    std::string text;
    for (const auto& step : convertTam(type, file, data, "Mod")) {
        text += text.empty() ? "" : " | ";
        switch (step.kind) {
        case TamStep::Kind::message:
            text += "say " + step.text.substr(0, step.text.find('\r'));
            break;
        case TamStep::Kind::error:
            text += "FAIL " + step.text;
            break;
        case TamStep::Kind::makeFolder:
            text += "make " + step.text;
            break;
        case TamStep::Kind::write:
            text += step.to + "=" + step.text;
            break;
        case TamStep::Kind::copy:
            text += step.from + " > " + step.to;
            break;
        case TamStep::Kind::copyIfThere:
            text += step.from + " ?> " + step.to;
        }
    }
    return text;
}

struct Case {
    TamType type;
    const char* file;
    const char* data;
    const char* told;
};

TEST(TamReleaseTest, each_type_is_read_in_its_own_way) {
    const Case cases[] = {
        {TamType::tc, "a.tc", "N\r\nOne##Two\r\nA B\r\nx.hpi sub\\a name.hpi\r\n y\r\n",
         "make N | info.txt=One\r\nTwo\r\n | ccodes.txt=A\r\nB\r\n | x.hpi > sub\\a name.hpi |  > "
         "y"},
        {TamType::tc, "a.tc", "N\r\n\r\n\r\n", "make N | info.txt=\r\n | ccodes.txt=\r\n"},
        {TamType::tc, "a.tc", "N\nD\nA  B", "make N | info.txt=D\r\n | ccodes.txt=A\r\n\r\nB\r\n"},
        {TamType::ai, "Foo.ai", "N\r\nD\r\nC\r\none.txt\r\nai\\two.txt\r\n",
         "make N | info.txt=D\r\n | ccodes.txt=C\r\n | Foo(1) > one.txt | Foo(2) > ai\\two.txt"},
        {TamType::mutator, "}{Big.tam", "N\r\nD\r\nC\r\n5\r\n",
         "make N | info.txt=D\r\n | ccodes.txt=C\r\n | }{Big.ccx > }{Big.ccx"},
        {TamType::mutator, "Soft.tam", "N\r\nD\r\nC\r\n",
         "make N | info.txt=D\r\n | ccodes.txt=C\r\n | say You have selected a Mutator that "
         "includes a Soft Mutator. | Soft.sm > Soft.sm"},
        {TamType::mutator, "S.tam", "N\r\nD\r\nC\r\n 1.5 files\r\n",
         "make N | info.txt=D\r\n | ccodes.txt=C\r\n | say You have selected a Mutator that "
         "includes a Soft Mutator. | S.sm > S.sm | S(1).ccx > S(1).ccx | S(2).ccx > S(2).ccx"},
        {TamType::mutator, "S.tam", "N\r\nD\r\nC\r\nabc\r\n",
         "make N | info.txt=D\r\n | ccodes.txt=C\r\n | say You have selected a Mutator that "
         "includes a Soft Mutator. | S.sm > S.sm"},
        {TamType::ufo, "Sm\xE4ll & co.ufo", "never read",
         "make Sm\xE4ll & co | Sm\xE4ll & co.ufo > Sm\xE4ll & co.ufo | Sm\xE4ll & co.txt ?> "
         "info.txt"},
        {TamType::unitPack, "p.pac", "N\r\nD\r\nfirst\r\n",
         "make N | info.txt=D\r\n | first.ufo > first.ufo | first.txt ?> first.txt"},
        {TamType::unitPack, "p.pac", "N\r\nD", "make N | info.txt=D\r\n"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(told(c.type, c.file, c.data), c.told) << c.file << ": " << c.data;
}

TEST(TamReleaseTest, a_file_that_ends_early_is_told_of_in_its_own_words) {
    const Case cases[] = {
        {TamType::tc, "a.tc", "", "FAIL Error: TAM TC Data File does not contain a TC Name."},
        {TamType::tc, "a.tc", "N",
         "make N | FAIL Error: TAM TC Data File does not contain a TC Description."},
        {TamType::tc, "a.tc", "N\r\nD\r\n",
         "make N | info.txt=D\r\n | FAIL Error: TAM TC Data File does not contain any "
         "compatability codes."},
        {TamType::ai, "a.ai", "", "FAIL Error: TAM AI Data File does not contain an AI Name."},
        {TamType::ai, "a.ai", "N\r\n",
         "make N | FAIL Error: TAM AI Data File does not contain a AI Description."},
        {TamType::ai, "a.ai", "N\r\nD",
         "make N | info.txt=D\r\n | FAIL Error: TAM AI Data File does not contain any "
         "compatability codes."},
        {TamType::mutator, "a.tam", "",
         "FAIL Error: TAM Mutator Data File does not contain a Mutator Name."},
        {TamType::mutator, "a.tam", "N",
         "make N | FAIL Error: TAM Mutator Data File does not contain a Mutator Description."},
        {TamType::mutator, "a.tam", "N\r\nD",
         "make N | info.txt=D\r\n | FAIL Error: TAM MUT Data File does not contain any "
         "compatability codes."},
        {TamType::unitPack, "a.pac", "",
         "FAIL Error: TAM Unit Pack Data File does not contain a Unit Pack Name."},
        {TamType::unitPack, "a.pac", "N",
         "make N | FAIL Error: TAM UP Data File does not contain a UP Description."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(told(c.type, c.file, c.data), c.told);
}

TEST(TamReleaseTest, a_line_that_makes_no_sense_ends_the_conversion_after_what_came_before) {
    const std::string head = "make N | info.txt=D\r\n | ccodes.txt=C\r\n | ";
    const std::string bad = "FAIL Error: something bad happened";
    const std::string soft = "say You have selected a Mutator that includes a Soft Mutator. | "
                             "S.sm > S.sm | ";
    const auto start = std::string("N\r\nD\r\nC\r\n");
    EXPECT_EQ(told(TamType::tc, "a.tc", start + "x y\r\nnoblank\r\nz z\r\n"),
              head + "x > y | " + bad);
    EXPECT_EQ(told(TamType::tc, "a.tc", start + "\r\n"), head + bad);
    for (const auto* count : {"32768", "99999999999", "-32769"})
        EXPECT_EQ(told(TamType::mutator, "S.tam", start + count), head + soft + bad) << count;
    EXPECT_EQ(told(TamType::mutator, "S.tam", start + "-32768"),
              head + soft.substr(0, soft.size() - 3));
    EXPECT_EQ(told(TamType::mutator, "tam", start), head + bad);
    EXPECT_EQ(told(TamType::ufo, "ufo", ""), bad);
    const auto deep = std::string(1001, 'a');
    EXPECT_EQ(told(TamType::tc, "a.tc", start + "x " + deep), head + bad);
    EXPECT_EQ(told(TamType::ai, "ai", start), head.substr(0, head.size() - 3));
    for (const auto* path : {"..\\x", "a\\..\\x", "\\x", "/x", "C:\\x", "c:x", "a/../x"}) {
        EXPECT_EQ(told(TamType::tc, "a.tc", start + "x " + path), head + bad) << path;
        EXPECT_EQ(told(TamType::tc, "a.tc", start + path + " x"), head + bad) << path;
        EXPECT_EQ(told(TamType::ai, "a.ai", start + path), head + bad) << path;
        EXPECT_EQ(told(TamType::unitPack, "a.pac", std::string("N\r\nD\r\n") + path),
                  "make N | info.txt=D\r\n | " + bad)
            << path;
    }
}

TEST(TamReleaseTest, a_name_is_filtered_once_and_may_be_empty) {
    EXPECT_EQ(told(TamType::tc, "a.tc", "R\xE4nd & Co\r\nD\r\nC"),
              "say Illegal characters found in name \"R\xE4nd & Co\". | make Rnd  Co | "
              "info.txt=D\r\n | ccodes.txt=C\r\n");
    EXPECT_EQ(told(TamType::unitPack, "a.pac", "\r\nD"), "make  | info.txt=D\r\n");
}

TEST(DisplayNameTest, sixty_nine_characters_are_permitted) {
    std::string all;
    for (int code = 0; code < 256; ++code)
        all += static_cast<char>(code);
    EXPECT_EQ(permittedPart(all), " ()-./0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ_"
                                  "abcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(permittedPart(all).size(), 69U);
    EXPECT_EQ(permittedPart(" a/b "), " a/b ");
}

} // namespace
} // namespace formats
