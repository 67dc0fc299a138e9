; Dream Board - creative - bowed metal and vibraphone pinned in waltz time
#include "studio.orc"
piece   "Dream Board", 94, "Ab lydian", 3
chords  "A", "Abmaj9:2 Bb6/Ab:2 Gm7:2 Cm9:2"
chords  "B", "Fm9:2 Gm7:2 Abmaj9:2 Bb6:2"
chords  "Z", "Abmaj9:4"
form    "AABAABABBAZ", 4
space   "hall", .95, 7800
repeats 1, .5
tape    .55, .1
;       player          pattern           A A B A A B A B B A Z
veil    "air",                           "3 3 3 3 3 3 3 3 3 3 3", -3
wash    "bowed",   60,                   "3 4 4 5 5 4 5 6 6 4 3", -1
wash    "glass",   68,                   ". . 3 . 3 3 . 4 4 3 3", -2
wash    "pad",     56,                   ". 2 3 3 3 3 3 4 4 3 3", -3
bass    "sub",     37,  "1-----|----..", ". 3 4 4 4 5 4 4 5 4 3", -3
bass    "harp",    44,  "1-----|..5...", "4 4 4 4 . 5 . 5 . 5 4", -3, -.1
keys    "vibes",   67,  "0.2.1.|..3...", "4 5 . 5 5 . 5 . . 5 4", 0, .2, .4, .25
keys    "vibes",   67,  "0.1.3.|2...4.", ". . 5 . . 5 . 6 6 . .", 0, .2, .4, .25
keys    "felt",    62,  "..0.1.|..2...", ". . . 4 4 . 5 . 5 . .", -2, -.2, .4, .15
tune    "flute",   73,  "5-----|3-----|4-----|2-----|4-----|2-----|5---3-|1-----", ". . . . 4 . 5 . . 4 .", 0, -.15, .5, .2
tune    "celesta", 73,  "3-----|5---3-|4-----|2-----|5-----|3---1-|2-----|4---6-", ". . 4 . . 4 . 5 5 . .", 1, .1, .5, .3
