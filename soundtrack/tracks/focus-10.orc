; Calm Syntax - focus - a marimba counting softly, the count shifting by one
#include "studio.orc"
piece   "Calm Syntax", 100, "C dorian"
chords  "A", "Cm9:4 Fsus4:2 Ebadd9:2"
chords  "B", "Abmaj7:2 Bbadd9:2 Cm9:4"
chords  "Z", "Cm9:4"
form    "AAABABAAZ", 4
space   "hall", .86, 6000
repeats .75, .4
tape    .2, .15
;        player          pattern                                   A A A B A B A A Z
veil     "room",                                                  "4 4 4 4 4 4 4 4 4", -4
wash     "dusk", 57,                                              "3 4 4 5 4 5 4 4 4"
wash     "glass", 69,                                             ". . 2 3 3 4 3 2 3", -2
bass     "sub", 36,      "1-------|------..",                     ". 3 3 4 4 4 4 3 3", -4
keys     "marimba", 62,  "0..1..2.|0..1..2.|3..1..2.|0..1..2.",   "4 4 5 4 5 5 5 4 3", 0, -.15, .25, .1
keys     "marimba", 67,  ".0..1..2|.0..1..3|.0..1..2|.0.....2",   ". . 4 4 5 5 4 . .", 0, .2, .25, .15
keys     "vibes", 74,    "0.......|........|..1.....|........",   ". 3 3 4 4 5 4 4 4", 0, .1, .45, .3
tune     "felt", 72,     "5-------|3-------|........|........|4-------|2-------|........|........", ". . . . 5 . 5 . .", 2, 0, .4, .2
