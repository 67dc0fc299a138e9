; Velvet Margin - creative - felt piano and low strings, thinking with the lid closed
#include "studio.orc"
piece   "Velvet Margin", 78, "A minor"
chords  "A", "Am9:2 Fmaj9:2 Cadd9:2 Em7/B:2"
chords  "B", "Dm9:2 G6:2 Cmaj9:2 Em7:2"
chords  "Z", "Fmaj9:2 Am9:2"
form    "AABABAZ", 3
space   "hall", .87, 5000
repeats .75, .3
tape    .4, .2
;       player          pattern               A A B A B A Z
veil    "hiss",                              "3 3 3 3 3 3 3", -4
wash    "strings", 55,                       ". 3 4 5 6 5 3", 0
wash    "dusk",    52,                       "3 3 3 3 4 3 3", -2
bass    "felt",    45,  "1---5---|8---5---", "4 4 . 5 . 5 4", -1, -.15
bass    "cello",   40,  "1-------|----5---", ". . 4 5 6 5 4", -2, .15
bass    "felt",    45,  "1-----5-|....8...", ". . 5 . 6 . .", -1, -.15
keys    "felt",    62,  "..0.1.2.|..3.1...", "4 5 . 5 . 5 .", -1, .1, .3, .15
keys    "felt",    62,  "0.2.1.3.|2.1.4.2.", ". . 5 . 6 . .", -1, .1, .3, .15
tune    "felt",    72,  "5-----3-|........|3---1-3-|........|5-----3-|........|7---5---|........", ". 4 . . . 5 .", 2, .15, .4, .25
tune    "felt",    72,  "4---6---|4-------|2---5---|7-------|5---3---|2-------|5---3---|2-------", ". . 5 . . . .", 2, .15, .4, .2
tune    "cello",   57,  "4-----6-|8-------|7-----5-|2-------|3-----5-|7-------|5-------|2-------", ". . . . 6 . .", 1, -.2, .45
keys    "felt",    62,  "*.......",          ". . . . . . 4", -1, .1, .4
