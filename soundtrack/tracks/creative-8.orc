; Idea River - creative - harp, flute and running water in three
#include "studio.orc"
piece   "Idea River", 88, "F lydian", 3
chords  "A", "Fadd9:2 Cadd9/E:2 Dm9:2 G6:2"
chords  "B", "Am9:2 Em7:2 Fmaj9:2 G6:2"
chords  "Z", "Fmaj9:4"
form    "AABAABABBAZ", 4
space   "hall", .88, 8200
repeats 1, .35
tape    .15, .05
;       player           pattern           A A B A A B A B B A Z
veil    "stream",                         "4 3 4 3 4 3 4 3 3 4 4", -5
wash    "strings",  58,                   ". 2 3 3 4 4 4 5 6 4 3", -1
wash    "pad",      62,                   "2 3 3 3 3 4 4 4 4 3 3", -2
bass    "upright",  36,  "1-----|..5...", ". . 4 4 5 5 5 6 6 . .", -2
bass    "sub",      36,  "1-----|----..", ". 3 . . . . . . . 4 3", -4
keys    "harp",     62,  "0.1.2.|3.2.1.", "4 5 . 5 5 . 5 . . 5 4", -1, .15, .3, .1
keys    "harp",     62,  "012.43|0.2.3.", ". . 5 . . 6 . 6 6 . .", -1, .15, .3, .1
keys    "marimba",  67,  "..0...|1...2.", ". . . 4 . 4 5 4 5 . .", -2, -.25, .3, .15
tune    "flute",    72,  "5-----|3-----|2---1-|5-----|6-----|3---1-|2-----|4---6-", ". 4 . . 5 . 5 . . . .", 1, -.1, .45, .15
tune    "flute",    72,  "3---5-|3-----|2---7-|5-----|3---1-|5-----|6---4-|6-----", ". . 4 . . . . 5 6 . .", 1, -.1, .45, .15
tune    "clarinet", 65,  "3-----|5-----|7-----|2-----|1-----|3-----|4-----|2-----", ". . . . . 4 . 4 5 . .", 0, -.3, .45
