; Glass Margins - creative - music box and strings under one long camera move
#include "studio.orc"
piece   "Glass Margins", 76, "C# minor"
chords  "A", "C#m9:2 Amaj9:2 Eadd9:2 B6:2"
chords  "B", "F#m9:2 Amaj9:2 G#m7:2 C#m9:2"
chords  "C", "Amaj9:2 Badd9:2 C#m9:2 E/G#:2"
chords  "Z", "Amaj9:2 C#m9:2"
form    "ABACCAZ", 4
space   "hall", .92, 8500
repeats .75, .4
tape    .2, .1
;       player           pattern               A B A C C A Z
veil    "room",                               "3 4 3 4 4 3 3", -4
wash    "glass",    66,                       "3 3 4 4 6 4 3", 0
wash    "strings",  57,                       ". 3 4 5 6 . 3", 0
bass    "sub",      37,  "1-------|------..", ". . 4 4 5 4 3", -4
bass    "cello",    40,  "1---5---|8---5---", ". 4 . 5 6 3 .", -2, -.15
keys    "musicbox", 73,  "0.2.1.3.|2.1.....", "4 5 . 5 . 5 4", 1, .2, .4, .25
keys    "grand",    62,  "..1.2.3.|..4.2.1.", ". 4 5 . 5 6 5", -2, -.1, .3, .1
keys    "grand",    62,  "*.......",          ". . . . 5 . .", -3, -.1, .35
tune    "celesta",  73,  "5---3---|........|3---1---|........|7---5---|........|4---2---|........", ". . 5 . . 4 .", 1, .1, .45, .3
tune    "strings",  73,  "3-------|5-------|4-------|2-------|3-------|7-------|5-------|2-------", ". . . 5 6 . .", -1, -.2, .5
tune    "horn",     61,  "1-------|........|1-------|........|7-------|........|5-------|........", ". 4 . . 5 . .", 0, -.25, .5
