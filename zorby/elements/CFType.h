#pragma once

#include <cstdint>

namespace zorby {

// The formats of the coded control fields. OffsetTables.h has a table of positions for each. A 006
// form also describes 008/18-34: its position k is byte k + 17 of the 008.
enum CFType : std::int32_t {
    CFLdr = 1,             // Leader
    CFBlock = 2,           // a block of four parts, stored and never interpreted
    CF008Standard = 3,     // 008, positions common to all materials
    CF008Alternative = 4,  // 008 under other positions, stored and never interpreted

    CF006None = 600,     // no 006 form
    CF006Unknown = 601,  // uses the table of CF006Books, but no element belongs to it
    CF006Books = 602,
    CF006ComputerFile = 603,
    CF006Map = 604,
    CF006Mixed = 605,
    CF006MusicSound = 606,
    CF006Continuing = 607,
    CF006Visual = 608,
    CF006AltDate = 609,  // like CF006Unknown; CF008Alternative describes the 008 of such a record

    CF007None = 700,     // no 007
    CF007Unknown = 701,  // uses the table of CF007Unspecified, but no element belongs to it
    CF007Map = 702,
    CF007Electronic = 703,
    CF007Globe = 704,
    CF007Projected = 705,
    CF007Microform = 706,
    CF007Nonprojected = 707,
    CF007MotionPicture = 708,
    CF007Sound = 709,
    CF007Text = 710,
    CF007Video = 711,
    CF007Unspecified = 712,
    CF007TenByte = 713,  // ten positions, stored and never interpreted
    CF007RemoteSensing = 714,
    CF007Tactile = 715,
    CF007NotatedMusic = 716,
    CF007Kit = 717,
};

}  // namespace zorby
