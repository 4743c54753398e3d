#include <array>

#include "resources/text_tables.h"

namespace quorvale {

namespace {

constexpr std::array<TextEntry, 34> texts{{
    {100, u"FileName"},
    {101, u"Line No."},
    {102, u"Source Line"},
    {103, u"Find"},
    {104, u"Find All"},
    {105, u"Wildcard Find All"},
    {106, u"-"},
    {107, u"Recent Search List"},
    {108, u"Go to Line"},
    {109, u"Collapse Lines"},
    {110, u"Edit"},
    {111, u"Show Boundaries"},
    {112, u"Searchg"},
    {113, u"999999"},
    {114, u" Line 0 "},
    {115, u"Popup"},
    {116, u"&Edit"},
    {117, u"&Undo"},
    {118, u"Undo &All"},
    {119, u"&Previous Correction"},
    {120, u"&Next Correction"},
    {121, u"&Commit Updates"},
    {122, u"PopupCollapse"},
    {123, u"&Collapse All"},
    {124, u"&Expand All"},
    {125, u"Find Next"},
    {500, u"Fail to save file.%1"},
    {501, u"This is the last update to the file."},
    {502, u"This is the first update to the file."},
    {503, u"You are about to undo all corrections made to the file.%1Continue?"},
    {504, u"Return"},
    {505, u"%1 match(es) found."},
    {506, u"No match found."},
    {507, u" Line %1 "},
}};

}  // namespace

std::span<const TextEntry> EnglishTexts() { return texts; }

}  // namespace quorvale
