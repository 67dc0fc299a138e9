; Misted Window - relaxation - three slow beats, harp and cello while the wind clears the glass
#include "studio.orc"
piece   "Misted Window", 66, "A dorian", 3
chords  "A", "Am9:2 D/A:2 Fmaj7:2 Em7:2"
chords  "B", "Cmaj9:2 G/B:2 D/A:2 Em7:2"
chords  "Z", "Am9:4"
form    "AABABAABZ", 4
space   "hall", .92, 6000
repeats 1.5, .45
tape    .4, .15
;        player          pattern                  A A B A B A A B Z
veil     "wind",                                 "6 5 5 6 5 5 6 5 6", 4
veil     "room",                                 "4 4 4 4 4 4 4 4 4", -4
wash     "dusk", 57,                             "4 5 5 4 5 5 4 5 4"
wash     "strings", 57,                          ". . 3 3 4 3 . 4 3", -1
bass     "upright", 35,  "1-----|......",        ". 3 4 3 4 4 3 4 3", -3
keys     "harp", 60,     "0.1.2.|3.2.1.",        "4 5 5 4 5 5 4 5 4", 0, .1, .35, .15
keys     "celesta", 79,  "..?...|......|....?.", ". . 3 . 4 3 . 4 .", -3, .3, .5, .3
tune     "cello", 55,    "5-----|3-----|4-----|2-----|1-----|3-----|2-----|------", ". . . 5 . 5 . . .", 1, -.15, .5
tune     "cello", 55,    "3-----|5-----|4-----|2-----|1-----|6-----|5-----|------", ". . 4 . 6 . . 6 .", 1, -.15, .5
