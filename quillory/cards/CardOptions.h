#pragma once

#include <quillory/cards/Headings.h>
#include <quillory/cards/PrintItem.h>
#include <quillory/queries/PlaceSet.h>
#include <zorby/platform/Font.h>

#include <string>
#include <vector>

namespace quillory {

enum NoteChoice : std::int32_t { kNotesNone, kNotesAll, kNotesSelected };

// What comes on the cards of one group: shelf list, main entry, or added entries.
struct CardGroup {
    bool isMade = false;
    NoteChoice notes = kNotesAll;
    int copies = 1;
    PlaceSet selectedNotes = {};  // where only some notes are chosen
    PlaceSet moreSubfields = {};  // printed below the notes
};

// The fonts of a card, by what stands in them.
struct CardFonts {
    zorby::CFont callNumber;
    zorby::CFont heading;  // the main heading, and added ones
    zorby::CFont continued;
    zorby::CFont body;
    zorby::CFont tracings;
};

// Lengths are in inches, as the profile has them.
struct CardOptions {
    int cardsPerSheet = 3;  // 1 to 4
    double verticalOffset = 0;
    double horizontalOffset = 0;
    double holeCenter = 2.6;  // of the hole, from the upper edge; 0 for cards without a hole
    SubjectChoice subjects = kSubjectsAll;
    CardGroup shelfList;
    CardGroup mainEntry;
    CardGroup addedEntries;
    CardFonts fonts;

    const CardGroup& GroupOf(ItemUse use) const;
};

// The options of the profile in force. Throws UsageError, with the name of the key, for a value
// that means nothing.
CardOptions CardOptionsOfProfile();

}  // namespace quillory
