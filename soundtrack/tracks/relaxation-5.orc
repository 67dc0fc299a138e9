; Soft Shelter - relaxation - a low warm rumble behind the wall, a stove, an old tape organ and one soft electric piano
#include "studio.orc"
piece   "Soft Shelter", 56, "F major"
chords  "A", "Fmaj9:2 Bbmaj9/F:2 Am7:2 Dm9:2"
chords  "B", "Gm9:2 C9sus:2 Bbmaj9:2 Fmaj9/A:2"
chords  "C", "Dm9:2 Bbmaj9:2 Gm9:2 C13sus:2"
chords  "I", "Fmaj9:2"
chords  "Z", "Bbmaj9/F:2 Fadd9:4"
form    "IABACZ", 5
space   "chamber", .88, 4600
repeats 1.5, .35
tape    .5, .15
;       player           pattern                                                                      I A B A C Z
veil    "brown",                                                                                    "6 5 5 5 4 6", -1
veil    "fire",                                                                                     "4 3 4 3 4 4", 2
wash    "tapeorgan", 57,                                                                            "3 3 . 4 5 3", -2
wash    "drift",     57,                                                                            ". 2 4 3 4 3", -3
wash    "bowed",     69,                                                                            ". . 3 . 4 3", -6
bass    "warm",      38, "1-------|------..|1-------|----5-3-|1-------|--5---..|1-------|..3-5---", ". 3 4 4 5 3", -5
bass    "felt",      46, "1---..5-|........|1---5---|..8.....",                                     "3 4 . 4 . 4", -2, -.15
stab    "rhodes",    64, "....x---|--------|..x-----|--------",                                     ". 3 . . 4 .", -4, .15, .4, .1
keys    "rhodes",    64, "..0.2...|..1.3...|..0.3...|....2...",                                     ". . 4 . . 4", -2, .15, .4, .15
keys    "muted",     64, "0...2.1.|..3.....|..1...2.|........",                                     ". . 3 3 4 .", -4, .3, .4, .2
tune    "rhodes",    66, "5-----3-|2-------|........|........|5-----3-|7-------|........|........", ". . . 4 . .", 2.5, -.1, .45, .25
tune    "clarinet",  66, "..2---4-|6-------|........|....5---|..4---3-|5-------|........|........", ". . 4 . . .", 1.5, -.2, .5
tune    "rhodes",    66, "..6---8-|7-------|........|........|..4---6-|9-------|........|5-------", ". . . . 5 .", 2.5, -.1, .45, .25
tune    "clarinet",  66, "........|........|..5---3-|2-------|........|........|....3---|2-------", ". . . . 4 .", 0.5, -.25, .5
