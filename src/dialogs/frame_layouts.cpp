#include "dialogs/frame_layouts.h"
#include <array>

namespace tsl {

QString regionName(FrameRegion region) {
    static const char* const kNames[] = {"Contents", "Body", "Header", "Footer"};
    return QLatin1String(kNames[region]);
}

const std::vector<FrameLayout>& frameLayouts() {
    // Numbers 5 and 6 run against the list order; the templates go by the numbers.
    // clang-format off
    static const std::vector<FrameLayout> layouts = {
        {"Header", 0, "picHead", Header,
         {{"imgHeadHead", Header, 1, 0, 0, 4, 1}, {"imgHeadBody", Body, 2, 0, 1, 4, 3}}},
        {"Contents", 1, "picContents", Contents,
         {{"imgContSide", Contents, 1, 0, 0, 1, 4}, {"imgContBody", Body, 2, 1, 0, 3, 4}}},
        {"Header & Contents 1", 2, "picHead1", Contents,
         {{"imgHead1Head", Header, 1, 0, 0, 4, 1}, {"imgHead1Body", Body, 2, 1, 1, 3, 3},
          {"imgHead1Cont", Contents, 3, 0, 1, 1, 3}}},
        {"Header & Contents 2", 3, "picHead2", Contents,
         {{"imgHead2Head", Header, 1, 1, 0, 3, 1}, {"imgHead2Body", Body, 2, 1, 1, 3, 3},
          {"imgHead2Cont", Contents, 3, 0, 0, 1, 4}}},
        {"Footer", 4, "picF", Footer,
         {{"imgFFoot", Footer, 1, 0, 3, 4, 1}, {"imgFBody", Body, 2, 0, 0, 4, 3}}},
        {"Footer & Contents 1", 6, "picF2", Contents,
         {{"picF2Body", Body, 1, 1, 0, 3, 3}, {"picF2Cont", Contents, 2, 0, 0, 1, 4},
          {"picF2Foot", Footer, 3, 1, 3, 3, 1}}},
        {"Footer & Contents 2", 5, "picF1", Contents,
         {{"imgF1Foot", Footer, 1, 0, 3, 4, 1}, {"imgF1Body", Body, 2, 1, 0, 3, 3},
          {"imgF1Cont", Contents, 3, 0, 0, 1, 3}}},
        {"Header & Footer", 7, "picHF", Header,
         {{"imgHFHead", Header, 1, 0, 0, 4, 1}, {"imgHFBody", Body, 2, 0, 1, 4, 2},
          {"imgHFFoot", Footer, 3, 0, 3, 4, 1}}},
        {"Header, Footer & Contents 1", 8, "picHF1", Contents,
         {{"imgHF1Head", Header, 1, 1, 0, 3, 1}, {"imgHF1Body", Body, 2, 1, 1, 3, 2},
          {"imgHF1Cont", Contents, 3, 0, 0, 1, 4}, {"imgHF1Foot", Footer, 4, 1, 3, 3, 1}}},
        {"Header, Footer & Contents 2", 9, "picHF2", Contents,
         {{"imgHF2Head", Header, 1, 0, 0, 4, 1}, {"imgHF2Body", Body, 2, 1, 1, 3, 2},
          {"imgHF2Cont", Contents, 3, 0, 1, 1, 2}, {"imgHF2Foot", Footer, 4, 0, 3, 4, 1}}},
    };
    // clang-format on
    return layouts;
}

int finishSlot(int frameType, FrameRegion region) {
    // By frame type, the slot of Contents, Body, Header and Footer. Type 5 has the row of
    // type 6, so on "Footer & Contents 2" what was typed last lands in another frame's slot;
    // the wizard has always done so.
    static const int kSlots[10][4] = {
        {2, 2, 1, 2}, {1, 2, 2, 2}, {3, 2, 1, 2}, {3, 2, 1, 2}, {2, 2, 2, 1},
        {2, 1, 1, 3}, {2, 1, 1, 3}, {3, 2, 1, 3}, {3, 2, 1, 4}, {3, 2, 1, 4},
    };
    return kSlots[frameType][region];
}

namespace {
TemplateLine S(const char* rowsOrCols, bool nested = false) {
    return {TemplateLine::Frameset, nested, rowsOrCols};
}
TemplateLine F(int slot, bool nested = false, int noresizeSlot = 0) {
    return {TemplateLine::Frame, nested, nullptr, slot, noresizeSlot};
}
TemplateLine E(bool nested = false) {
    return {TemplateLine::End, nested};
}
constexpr bool In = true; // a line of the nested frameset
constexpr const char* kRows = "rows=\"25%, *\"";
constexpr const char* kCols = "cols=\"25%, *\"";
constexpr const char* kRows3 = "rows=\"25%, *, 25%\"";
constexpr const char* kRowsFoot = "rows=\"*, 25%\"";
} // namespace

const std::vector<TemplateLine>& frameTemplate(int frameType) {
    static const std::array<std::vector<TemplateLine>, 10> templates = {{
        {S(kRows), F(1), F(2), E()},
        {S(kCols), F(1), F(2), E()},
        {S(kRows), F(1), S(kCols, In), F(3, In), F(2, In), E(In), E()},
        {S(kCols), F(3), S(kRows, In), F(1, In), F(2, In), E(In), E()},
        // The Footer's slot 1 takes the first, 75% row.
        {S("rows=\"75%, *\""), F(1), F(2), E()},
        {S(kRowsFoot), S(kCols, In), F(3, In), F(2, In), E(In), F(1), E()},
        {S(kCols), F(2), S(kRowsFoot, In), F(1, In), F(3, In), E(In), E()},
        {S(kRows3), F(1), F(2), F(3), E()},
        // The Contents line takes the Header's noresize, not its own.
        {S(kCols), F(3, false, 1), S(kRows3, In), F(1, In), F(2, In), F(4, In), E(In), E()},
        {S(kRows3), F(1), S(kCols, In), F(3, In), F(2, In), E(In), F(4), E()},
    }};
    return templates.at(static_cast<size_t>(frameType));
}

} // namespace tsl
