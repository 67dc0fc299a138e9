; Quiet Harbor - relaxation - ropes and water after the last boat is in, a clarinet on the low step, a harmonium indoors
#include "studio.orc"
piece   "Quiet Harbor", 68, "Bb mixolydian"
chords  "A", "Bbadd9:2 Ab6:2 Ebmaj9:2 Fm9:2"
chords  "B", "Gm7:2 Ebmaj9:2 Ab6:2 F9sus:2"
chords  "C", "Cm9:2 Gm7:2 Abmaj9:2 Ebmaj9/Bb:2"
chords  "I", "Bbadd9:2 Ebmaj9/Bb:2"
chords  "Z", "Ebmaj9/Bb:2 Bbadd9:4"
form    "IABACBZ", 4
space   "chamber", .87, 5800
repeats .75, .35
tape    .3, .2
stray   .18
;       player          pattern                                                                      I A B A C B Z
veil    "sea",                                                                                     "5 4 3 3 3 3 4", 0, .2
veil    "drops",                                                                                   "3 . 3 . . 3 4", -1, .35
veil    "room",                                                                                    "4 4 4 4 4 4 4", -3
wash    "reed",     58,                                                                            "3 3 . 4 5 4 3", -3
wash    "hollow",   58,                                                                            ". . 5 . 4 3 .", -3
bass    "upright",  36, "1-----5-|........|1---..3-|....5...",                                     ". 4 4 4 5 4 .", -3
bass    "sub",      36, "1-------|--......",                                                       "3 . . . . . 3", -5
keys    "nylon",    61, "0..2..3.|....1...|0..1..2.|..3.....",                                     "3 4 . 5 . . 4", -2, -.2, .3, .1
keys    "nylon",    63, "0.2.3.1.|2...1...|..1.2.3.|....?...",                                     ". . 4 . 5 . .", -2, -.2, .3, .1
keys    "vibes",    70, "....?...|........|..1...2.|........",                                     ". . . 3 . 4 .", -2, .3, .4, .2
tune    "clarinet", 60, "..5---6-|5-------|........|........|..5---6-|3-------|........|........", ". . . 4 . . .", 3.5, .15, .45, .15
tune    "clarinet", 60, "..3---1-|6-------|........|........|..4---2-|5-------|........|........", ". . 4 . . 4 .", 3.5, .15, .45, .15
tune    "clarinet", 60, "..6---8-|9-------|........|........|..8---6-|5-------|........|........", ". . . . 5 . .", 3.5, .15, .45, .15
tune    "jazz",     65, "........|........|....3---|1-------|........|........|....2---|a-------", ". . . . . 4 .", 2.5, .3, .4, .2
