; Resting Air - relaxation - the long exhale of a soft organ, small bells on the inhale
#include "studio.orc"
piece   "Resting Air", 56, "C lydian"
chords  "A", "Cmaj9#11:2 D6/C:2 Bm7:2 Em9:2"
chords  "B", "Am9:2 Bm7:2 Cmaj9:2 Dadd9/C:2"
chords  "Z", "Cmaj9:4 G/C:2 Cmaj9:2"
form    "ABABZ", 5
space   "hall", .91, 9500
repeats 1.5, .45
tape    .2, .05
;       player        pattern               A B A B Z
veil    "air",                             "5 6 5 6 5", 4
veil    "wind",                            "4 3 4 3 4", -5
wash    "organ", 60,                       "3 4 5 6 4", -2, 0, .5
wash    "glass", 67,                       "2 3 3 4 4", -1
bass    "sub",   36,  "1-------|--------", ". 3 4 4 3", -4
keys    "bell",  72,  "....1...|........|..3.....|........", "4 . 5 . 4", 2, .2, .5, .35
keys    "bell",  72,  "0...2...|....1...", ". 4 . 5 .", 1, .2, .5, .35
keys    "grand", 62,  "..0.2...|3...1...", ". 4 . 5 3", -2, -.15, .4, .1
tune    "bell",  76,  "..3---5-|........|..2---1-|........|..2---7-|........|..5---3-|........", ". . 4 . .", 3, -.1, .5, .3
tune    "flute", 72,  "3-------|5-------|2-------|--------|7-------|--------|6-------|5-------", ". . . 4 .", -1, -.25, .55
