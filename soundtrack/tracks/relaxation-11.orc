; Soft Meadow - relaxation - thumb piano in long grass, a wooden flute, a brook somewhere to the left
#include "studio.orc"
piece   "Soft Meadow", 72, "G major"
chords  "A", "Gadd9:2 Em7:2 Cadd9:2 D/F#:2"
chords  "B", "Am7:2 Bm7:2 Cmaj9:2 Dsus4 D"
chords  "C", "Em9:2 Bm7:2 Cmaj9:2 G/B D"
chords  "I", "Gadd9:2 Cadd9/G:2"
chords  "Z", "Cadd9:2 G/B:2 Cadd9:2 Gadd9:2"
form    "IABACBZ", 4
space   "chamber", .85, 8200
repeats .75, .35
tape    .15, .05
stray   .18
;       player          pattern                                                                      I A B A C B Z
veil    "leaves",                                                                                  "4 4 3 4 3 4 4", -2, .15
veil    "stream",                                                                                  "5 4 3 3 3 3 4", -6, -.4
wash    "hollow",   62,                                                                            "3 3 . 4 4 4 3", 0
wash    "strings",  62,                                                                            ". . 4 . 4 . 2", -2
wash    "drift",    62,                                                                            ". 3 . 3 4 4 .", -3
bass    "nylon",    45, "1-----5-|....8...|1---5---|..3.....",                                     ". 4 4 4 5 5 .", -4
bass    "sub",      43, "1-------|--......",                                                       "3 3 . . 4 . 3", -5
keys    "kalimba",  67, "0..2..1.|..3.....|0..1..2.|....?...",                                     "3 4 . 5 . . 4", -4, .2, .3, .2
keys    "kalimba",  69, "0.2.4..3|..1.2...|0..3..2.|..1.....",                                     ". . 4 . 5 . .", -4, .2, .3, .2
keys    "marimba",  60, "0.....1.|..2.....|....0...|..1...?.",                                     ". . . 3 4 5 .", -4, -.25, .3
tune    "flute",    67, "..5---3-|6-------|........|........|..2---1-|3-------|........|........", ". . . 4 . . .", 2.5, -.2, .45, .1
tune    "clarinet", 60, "........|........|..2---4-|6-------|........|........|....6---|5---4---", ". . 3 . . . .", 1.5, -.25, .45, .1
tune    "harp",     67, "..5...7.|8.......|........|........|..9...8.|5.......|........|........", ". . . . 5 . .", 3.5, -.1, .45, .25
tune    "flute",    67, "3-----5-|6-------|........|........|6---5---|3-------|........|2-------", ". . . . . 5 .", 2.5, -.2, .45, .1
