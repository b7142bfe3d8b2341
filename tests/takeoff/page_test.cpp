#include "takeoff/page.h"

#include <gtest/gtest.h>

#include <functional>

namespace norvale {
namespace {

TEST(Page, TabsZonesAndPageTurns) {
  struct Case {
    const char* name;
    std::function<void(Page&)> write;
    std::string text;
  };
  const std::string twelve(12, 'x');
  const Case cases[] = {
      {"a tab to the column where the position stands", [](Page& p) { p.Print("abc"), p.Tab(4), p.PrintLine("d"); }, "abcd\n"},
      {"a tab that is past already", [](Page& p) { p.Print("abcd"), p.Tab(4), p.PrintLine("e"); }, "abcd\n   e\n"},
      {"a tab to column 1", [](Page& p) { p.Print("a"), p.Tab(1), p.PrintLine("b"); }, "a\nb\n"},
      {"zone from the line's start", [](Page& p) { p.NextZone(), p.PrintLine("a"); }, std::string(14, ' ') + "a\n"},
      {"zone behind 13", [&](Page& p) { p.Print(twelve + "x"), p.NextZone(), p.PrintLine("a"); }, twelve + "x a\n"},
      {"zone behind exactly 14", [&](Page& p) { p.Print(twelve + "xx"), p.NextZone(), p.PrintLine("a"); }, twelve + "xxa\n"},
      {"zone behind 15", [&](Page& p) { p.Print(twelve + "xxx"), p.NextZone(), p.PrintLine("a"); },
       twelve + "xxx" + std::string(13, ' ') + "a\n"},
      {"44 characters leave the mark on the line",
       [](Page& p) { p.Tab(15), p.Print(std::string(44, 'd')), p.Tab(59), p.PrintLine("*(L)"); },
       std::string(14, ' ') + std::string(44, 'd') + "*(L)\n"},
      {"45 push it to the next", [](Page& p) { p.Tab(15), p.Print(std::string(45, 'd')), p.Tab(59), p.PrintLine("*(L)"); },
       std::string(14, ' ') + std::string(45, 'd') + "\n" + std::string(58, ' ') + "*(L)\n"},
      {"blanks at a line's end go", [](Page& p) { p.PrintLine("  a  "), p.PrintLine("   "), p.Tab(9), p.EndLine(); }, "  a\n\n\n"},
      {"a new page ends an open line", [](Page& p) { p.Print("a"), p.NewPage(), p.PrintLine("b"), p.NewPage(); }, "a\n\fb\n\f"},
      {"columns begin anew on a page", [](Page& p) { p.PrintLine("a"), p.NewPage(), p.Tab(3), p.PrintLine("b"); }, "a\n\f  b\n"},
      {"control codes take a cell", [](Page& p) { p.Print(std::string_view("a\0b\nc\td\fe\x1b", 10)), p.PrintLine("|"); }, "a b c d e |\n"},
  };
  for (const Case& c : cases) {
    Page page;
    c.write(page);
    EXPECT_EQ(page.Text(), c.text) << c.name;
  }
}

TEST(Page, CellsAreCharactersAndBecomeUtf8) {
  Page page;
  page.Print("\x80\xE9");  // one cell each
  page.Tab(4);
  page.PrintLine("a");
  EXPECT_EQ(page.Utf8(), "\xE2\x82\xAC\xC3\xA9 a\n");
  page.Clear();
  page.Tab(2);
  page.PrintLine("b");
  EXPECT_EQ(page.Text(), " b\n");
}

}  // namespace
}  // namespace norvale
