; Slow Bloom - creative - wide strings and a horn, layers arriving one at a time
#include "studio.orc"
piece   "Slow Bloom", 72, "F major"
chords  "A", "Fadd9:2 Bbmaj9/F:2 Dm9:2 Csus4:2"
chords  "B", "Bbmaj9:2 Am7:2 Gm9:2 C9sus:2"
chords  "C", "Dm9:2 Bbmaj9:2 Fadd9/A:2 C6:2"
chords  "Z", "Bbmaj9:2 Fadd9:2"
form    "ABACBCZ", 4
space   "hall", .94, 7000
repeats 1, .35
tape    .25, .15
;       player          pattern               A B A C B C Z
veil    "leaves",                            "3 3 3 3 3 3 3", -4
wash    "pad",     58,                       "3 3 4 5 5 6 4"
wash    "strings", 60,                       ". 3 3 5 5 7 3", 0
wash    "reed",    53,                       ". . 3 . 4 4 3", -2
bass    "sub",     36,  "1-------|------..", ". . 4 4 5 5 4", -3
bass    "upright", 36,  "1-----5-|....8...", ". 4 . 5 5 6 .", -4
keys    "felt",    62,  "..0.2.1.|..3.....", "4 4 . 5 . . .", 0, -.1, .35, .15
keys    "grand",   64,  "0.2.1.3.|2.4.3.1.", ". . 5 5 5 6 4", -2, .15, .35, .1
tune    "horn",    60,  "....5---|3-------|....4---|2-------|....3---|1-------|..2-4---|5-------", ". 4 . 5 . 6 .", 2, -.2, .5
tune    "felt",    72,  "5-----3-|........|6-----5-|........|3-----1-|........|4---2---|........", ". . 4 . . . .", 1, .1, .4, .25
tune    "strings", 72,  "6---5---|3-------|5---3---|1-------|4---2---|6-------|5---4---|2-------", ". . . . 5 . .", 0, .2, .5
