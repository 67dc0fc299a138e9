; Single Thread - focus - one dark tone held from end to end, the harmony leaning on it
#include "studio.orc"
piece   "Single Thread", 66, "C# minor"
chords  "A", "C#m9:4 C#sus2:2 Amaj7/C#:2"
chords  "B", "F#m9/C#:4 C#m9:2 G#m7/C#:2"
chords  "C", "Amaj9:2 E6:2 F#m9:2 C#sus2:2"
form    "ABACBA", 5
space   "hall", .92, 3800
repeats 2, .4
tape    .45, .25
;       player         pattern               A B A C B A
veil    "brown",                            "4 5 5 5 5 4", -3
wash    "dusk",   53,                       "4 5 6 6 7 5", 2
wash    "hollow", 61,                       ". 3 3 4 4 3", -2
bass    "sub",    37,  "1-------|--------", "4 5 5 5 6 5", -2
bass    "cello",  37,  "1-------|--------|5-------|--------", ". 3 4 4 4 3", -3, -.15
wash    "bowed",  66,                       ". . 3 4 5 3", -1, .1
keys    "felt",   61,  "........|....1...|........|..2.....", ". . . 4 4 .", -2, .2, .4, .25
tune    "bowed",  68,  "5-------|--------|4-------|--------|3-------|--------|1-------|........", ". 4 . . 5 .", 3, -.2, .5
