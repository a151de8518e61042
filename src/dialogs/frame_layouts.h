#pragma once
// The ten framesets of the Frame Hanger as data: each layout's name, number, map of regions
// (the image the user clicks, the region it stands for, the slot it edits, and where it sits
// in the picture), the slot each region saves to at Finish, and the lines of its template.
#include <QString>
#include <vector>

namespace tsl {

// What part of a layout is being edited; a region, not a slot.
enum FrameRegion { Contents = 0, Body = 1, Header = 2, Footer = 3 };
QString regionName(FrameRegion region);

// A region's image in a layout's map. The picture is a 4 by 4 grid: a 25% row or column is one
// unit, the rest of the room the others.
struct RegionImage {
    const char* image;
    FrameRegion region;
    int slot; // 1 to 4
    int x, y, width, height;
};

// One line of a template: a frameset's opening tag with its rows or cols, a frame of a slot,
// or a closing tag; nested lines are indented deeper.
struct TemplateLine {
    enum Kind { Frameset, Frame, End } kind;
    bool nested = false;
    const char* rowsOrCols = nullptr; // of a frameset
    int slot = 0;                     // of a frame
    int noresizeSlot = 0;             // a frame whose noresize comes from another slot
};

struct FrameLayout {
    const char* name;      // as the list shows it
    int frameType;         // the layout's number, which the templates go by
    const char* container; // the map's container
    FrameRegion start;     // the region highlighted on arrival
    std::vector<RegionImage> regions;
};

// The layouts in the order of the list.
const std::vector<FrameLayout>& frameLayouts();
// The slot that region saves to at Finish, by frame type; every region has one.
int finishSlot(int frameType, FrameRegion region);
// The template of a frame type; its slots are those of the layout with that number.
const std::vector<TemplateLine>& frameTemplate(int frameType);

} // namespace tsl
