; Night Hush - relaxation - crickets, one held chord, a celesta counting stars without hurry
#include "studio.orc"
piece   "Night Hush", 54, "B minor"
chords  "A", "Bm9:4 Gmaj9:4"
chords  "B", "Em9:2 F#m7:2 Gmaj7#11:2 Asus2:2"
chords  "Z", "Bm9:4"
form    "ABABZ", 5
space   "hall", .94, 4600
repeats 1.5, .45
tape    .3, .1
;       player           pattern               A B A B Z
veil    "crickets",                           "6 5 6 5 6", 3
veil    "room",                               "4 4 4 4 4", -1
wash    "dusk",     58,                       "4 5 5 6 4", 1
wash    "strings",  54,                       ". 3 . 4 2", -2
bass    "sub",      35,  "1-------|--------", "3 4 4 5 3", -3
bass    "cello",    47,  "........|5-------|........|1-------", ". . 3 . .", -3, -.2, .45
keys    "celesta",  76,  "..?.....|......?.|........|....?...", "3 . 4 . 4", 0, .25, .5, .35
keys    "felt",     64,  "....1...|..2.....", ". 4 . 5 .", -1, -.15, .4, .2
tune    "felt",     71,  "5-------|........|3---2---|........|5-------|........|2---3---|........", ". . 5 . .", 1, -.1, .45, .3
tune    "celesta",  71,  "..3---1-|........|..5---1-|........|..7---5-|........|..4---3-|2-------", ". 4 . 6 .", 1, .2, .5, .35
