; Long Form - focus - the patience of a long page: strings, a warm guitar, no full stops
#include "studio.orc"
piece   "Long Form", 74, "Ab major"
chords  "A", "Abmaj9:4 Fm9:4"
chords  "B", "Dbmaj9:2 Eb6:2 Cm7:2 Fm9:2"
chords  "C", "Bbm9:2 Dbmaj9:2 Abadd9/C:2 Ebsus4:2"
chords  "Z", "Abmaj9:4"
form    "ABACBAZ", 4
space   "hall", .9, 6000
repeats 1, .35
tape    .25, .1
;       player          pattern               A B A C B A Z
veil    "room",                              "4 4 4 4 4 4 4", -3
wash    "strings", 57,                       "3 4 4 5 6 5 3", -1
wash    "pad",     61,                       "3 3 4 4 4 4 3", -2
bass    "sub",     37,  "1-------|------..", ". 3 4 4 5 4 3", -4
bass    "cello",   44,  "1-------|....5---", ". . 4 4 5 3 .", -3, -.2
keys    "jazz",    61,  "0...1...|..2.....", "4 . 4 . . 4 4", -2, .15, .35, .2
keys    "jazz",    61,  "0..1..2.|..3...1.", ". 5 . 5 5 . .", -2, .15, .35, .2
keys    "grand",   68,  "..?.....|......?.", ". . 4 . 5 4 .", -3, -.2, .45, .2
tune    "jazz",    68,  "....5---|3-------|........|........|....5---|1-------|........|........", ". . 4 . . 4 .", 0, .1, .4, .3
tune    "strings", 68,  "6-------|5-------|4-------|3-------|5-------|3-------|1-------|--------", ". . . . 4 . .", -2, -.25, .5
