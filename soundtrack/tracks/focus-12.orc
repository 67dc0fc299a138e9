; Signal Glass - focus - light travelling through panes: celesta, glass and almost no floor
#include "studio.orc"
piece   "Signal Glass", 88, "D lydian"
chords  "A", "Dmaj9:2 Aadd9/C#:2 Bm9:2 E6:2"
chords  "B", "F#m9:2 E6:2 Dmaj9#11:2 C#m7:2"
chords  "Z", "Dmaj9:4"
form    "AABABAAZ", 4
space   "hall", .92, 11000
repeats .75, .5
tape    .15, 0
;       player           pattern               A A B A B A A Z
veil    "air",                                "4 4 4 5 4 4 4 4", 2
wash    "glass",    66,                       "3 4 4 5 5 5 4 3", 2
wash    "bowed",    60,                       ". 3 3 3 4 4 3 3", -3
bass    "sub",      38,  "1-------|------..", ". 3 3 4 4 4 3 3", -5
bass    "harp",     45,  "1-------|....5...", "4 4 5 5 5 5 5 4", -4, -.1
keys    "celesta",  74,  "0...2...|..1.....", "4 4 . 4 . 5 4 .", -1, -.2, .4, .3
keys    "celesta",  74,  "..0.3...|1...2...", ". . 5 . 6 . . .", -1, -.2, .4, .3
keys    "musicbox", 81,  "....?...|........|......?.|........", ". 3 3 . 4 4 . 3", 0, .3, .5, .4
keys    "bell",     69,  "0.......|......1.", ". . 4 . 4 . 4 .", -2, .15, .45, .3
tune    "bell",     74,  "5---3---|........|1---7---|........|6---5---|........|4---2---|........", ". . . 5 . 5 . .", 1, .1, .5, .35
