; Soft Meadow - relaxation - thumb piano in long grass, a brook somewhere to the left
#include "studio.orc"
piece   "Soft Meadow", 72, "G major"
chords  "A", "Gadd9:2 Em7:2 Cadd9:2 D/F#:2"
chords  "B", "Am7:2 Bm7:2 Cmaj9:2 Dsus4 D"
chords  "Z", "Cadd9:2 Gadd9:2"
form    "AABABAZ", 3
space   "hall", .85, 8200
repeats .75, .35
tape    .15, .05
;       player          pattern               A A B A B A Z
veil    "leaves",                            "5 5 4 5 4 5 4", 2, .15
veil    "stream",                            "4 4 4 4 3 4 4", -5, -.5
wash    "pad",     62,                       "3 3 4 4 5 4 3", -1
wash    "strings", 60,                       ". . 3 . 4 . 2", -2
bass    "nylon",   45,  "1-----5-|....8...", ". 4 4 5 5 5 4", -3
bass    "sub",     40,  "1-------|--......", "3 4 4 . 4 4 3", -5
keys    "kalimba", 69,  "0..2..1.|..3.....", "4 5 . 5 . 5 4", 0, .2, .3, .2
keys    "kalimba", 69,  "0.2.4..3|..1.2...", ". . 5 . 6 . .", 0, .2, .3, .2
tune    "flute",   72,  "..3---2-|5-------|..3---1-|2-------|..3---5-|3-------|..2---6-|5-------", ". 4 . 5 . . .", 1, -.2, .45, .1
tune    "flute",   72,  "3-----5-|6-------|5---4-2-|4-------|3---2-1-|3-------|4---5---|2-------", ". . 4 . 6 . .", 1, -.2, .45, .1
tune    "celesta", 79,  "..3...2.|5.......|..3...1.|2.......|..3...5.|3.......|..2...6.|5.......", ". . . . . 4 .", 0, -.1, .45, .2
