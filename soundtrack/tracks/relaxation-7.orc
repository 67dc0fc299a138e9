; Still Shelter - relaxation - a music box winding down under a roof in steady rain
#include "studio.orc"
piece   "Still Shelter", 50, "Ab major"
chords  "A", "Abadd9:2 Dbmaj9/Ab:2 Abadd9:2 Ebsus4:2"
chords  "B", "Fm9:2 Dbmaj9:2 Bbm9:2 Eb9sus:2"
chords  "Z", "Abadd9:4"
form    "ABABZ", 6
space   "hall", .92, 5200
repeats 1, .45
tape    .7, .1
;       player           pattern               A B A B Z
veil    "rain",                               "5 4 5 5 5", -6
veil    "room",                               "4 4 4 5 4", -2
wash    "pad",      58,                       "3 4 5 6 4", -1
wash    "glass",    68,                       ". 2 3 3 2", -3
bass    "sub",      36,  "1-------|--------", ". 3 4 4 3", -4
bass    "grand",    44,  "1-------|--5-----", "3 4 4 5 3", -2, -.1
keys    "musicbox", 72,  "..1.2...|....3...|..2.1...|........", "4 . 5 . 4", 2, .2, .45, .3
keys    "musicbox", 74,  "0...2...|..1.....|3...2...|........", ". 5 . 6 .", 2, .2, .45, .3
keys    "grand",    60,  "*.......|........", ". 4 . 5 .", -3, -.1, .4
tune    "strings",  68,  "5-------|3-------|6-------|4-------|3-------|--------|2-------|--------", ". . 4 . .", -2, -.2, .5
tune    "grand",    72,  "....5-3-|........|....6-5-|........|....5-1-|........|....4-2-|........", ". . 4 . .", 0, .1, .45, .25
