; Quiet Harbor - relaxation - ropes, water and a clarinet after the last boat is in
#include "studio.orc"
piece   "Quiet Harbor", 68, "Bb mixolydian"
chords  "A", "Bbadd9:2 Ab6:2 Ebmaj9:2 Fm9:2"
chords  "B", "Gm7:2 Ebmaj9:2 Ab6:2 F9sus:2"
chords  "Z", "Bbadd9:4"
form    "AABABAZ", 4
space   "hall", .87, 5800
repeats .75, .35
tape    .3, .2
;       player           pattern               A A B A B A Z
veil    "surf",                               "5 4 5 4 5 4 5", -4, .2
veil    "room",                               "4 4 4 4 4 4 4", -2
wash    "reed",     58,                       "3 3 4 4 5 4 3", -2
wash    "hollow",   65,                       ". . 3 . 4 3 .", -2
bass    "upright",  36,  "1-----5-|........", ". 4 4 5 5 5 4", -2
bass    "sub",      36,  "1-------|--......", "3 . . . . . .", -3
keys    "nylon",    61,  "0..2..3.|....1...", "4 5 . 5 . 5 4", -2, -.2, .3, .1
keys    "nylon",    61,  "0.2.3.1.|2...1...", ". . 5 . 6 . .", -2, -.2, .3, .1
tune    "clarinet", 65,  "..5---6-|5-------|..4---3-|2-------|..3---5-|2-------|..1---3-|........", ". 4 . 5 . . .", 2, .15, .4, .15
tune    "clarinet", 65,  "3-----1-|........|5---3-2-|........|4-----6-|........|5---4---|2-------", ". . 4 . 6 . .", 2, .15, .4, .15
keys    "celesta",  77,  "....?...|........|......?.|........", ". 3 . 3 . 4 .", -2, .3, .45, .3
tune    "jazz",     65,  "..5---6-|5-------|..4---3-|2-------|..3---5-|2-------|..1---3-|........", ". . . . . 5 .", -1, .15, .4, .15
