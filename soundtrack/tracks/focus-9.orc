; Grey Study - focus - harmonium and brushes in the same shade of grey
#include "studio.orc"
piece   "Grey Study", 80, "C minor"
chords  "A", "Cm7:2 Fm9:2 Bbsus4:2 Ebmaj7:2"
chords  "B", "Abmaj7:2 Gm7:2 Fm9:2 Gsus4:2"
chords  "Z", "Cm9:4"
form    "AABABAAZ", 4
space   "hall", .82, 4600
repeats .75, .3
tape    .45, .3
;       player           pattern               A A B A B A A Z
veil    "brown",                              "4 4 4 4 4 4 4 4", -5
veil    "hiss",                               "3 3 3 3 3 3 3 3", -4
wash    "reed",     58,                       "3 4 4 5 4 5 4 3"
wash    "pad",      62,                       ". . 3 . 4 3 3 .", -3
bass    "upright",  36,  "1---....|1---5-..", ". 4 4 5 5 5 4 3", -2
bass    "sub",      36,  "1-------|------..", "3 . . 3 . 3 3 3", -5
beat    "brush",         "..o...x...o...x.",  ". . 3 4 4 4 4 .", 0, .2
stab    "rhodes",   62,  "x---....|....x---", "4 . 4 . 4 . 4 .", -4, -.2, .3, .1
keys    "felt",     63,  "..1...2.|....0...", ". 4 . 5 . 5 4 .", -2, .15, .3, .15
keys    "felt",     63,  "0..2..1.|....3...", ". . . 5 . 5 . .", -2, .15, .3, .15
tune    "clarinet", 63,  "....3---|........|....1---|6-------|....4---|........|....5---|3-------", ". . 4 . . 5 . .", 1, -.1, .4, .1
tune    "jazz",     67,  "1---3---|........|2---4---|........|1---6---|........|5-------|........", ". . . 5 . 4 . .", -1, .1, .4, .2
