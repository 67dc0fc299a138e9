; Cloud Drift - relaxation - a flute above the weather, chords that only change colour
#include "studio.orc"
piece   "Cloud Drift", 64, "D lydian"
chords  "A", "Dmaj9:4 E/D:2 C#m7:2"
chords  "B", "Bm9:2 F#m9:2 E6:2 Dmaj9#11:2"
chords  "Z", "Dmaj9:4"
form    "AABABZ", 5
space   "hall", .94, 9000
repeats 1.5, .4
tape    .25, .05
;       player         pattern               A A B A B Z
veil    "air",                              "5 6 5 6 5 5", 2
veil    "wind",                             "3 3 4 3 4 3", -4
wash    "glass",  66,                       "3 4 5 6 5 4", 1
wash    "hollow", 57,                       ". 3 4 5 4 3", -2
bass    "sub",    38,  "1-------|--------", ". 3 4 4 4 3", -4
keys    "harp",   66,  "?.......|..?...?.|........|....?...", "3 4 . 5 . 4", -2, .2, .45, .3
keys    "harp",   69,  "0.1.2...|....4...", ". . 4 . 5 .", -3, .2, .4, .3
tune    "flute",  74,  "....5---|--3-----|....5---|--------|....6---|--4-----|..5---2-|........", ". 4 . 5 . .", 1, -.15, .55, .2
tune    "flute",  74,  "..3---2-|1-------|..5---3-|........|..2---4-|5-------|..3-4---|3-------", ". . 4 . 6 .", 1, -.15, .55, .2
tune    "flute",  74,  "....5---|3-------|--------|........", ". . . . . 4", 1, -.15, .55, .2
