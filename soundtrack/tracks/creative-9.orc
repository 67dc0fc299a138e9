; Wide Canvas - creative - a horizon of pads and one far horn, room left on purpose
#include "studio.orc"
piece   "Wide Canvas", 74, "Bb lydian"
chords  "A", "Bbmaj9:4 C/Bb:4"
chords  "B", "Gm9:2 Dm7:2 Fadd9:2 C6:2"
chords  "C", "Am7:2 Bbmaj9:2 Gm9:2 C6:2"
chords  "Z", "Bbmaj9:4"
form    "ABACBAZ", 5
space   "hall", .95, 7500
repeats 1.5, .4
tape    .3, .1
;       player           pattern               A B A C B A Z
veil    "wind",                               "4 3 3 4 3 3 4", 0
wash    "pad",      57,                       "3 4 4 5 6 4 4", 1
wash    "reed",     62,                       ". 3 . 4 5 3 .", -1
wash    "glass",    69,                       ". . 3 . 4 3 4", -2
bass    "sub",      34,  "1-------|--------", "3 4 4 5 6 5 3", -2
bass    "cello",    46,  "1-------|....5---", ". 4 . 5 6 . .", -3, .2
keys    "dulcimer", 65,  "0...2...|..1...3.", "4 . 5 . 4 5 .", -2, .25, .4, .25
keys    "dulcimer", 65,  "0.2.1.3.|2...1...", ". 4 . 5 6 . .", -2, .25, .4, .25
keys    "grand",    62,  "..?...?.|....?...", ". . 4 . 5 . 4", -2, -.15, .45, .2
tune    "horn",     62,  "....5---|3-------|........|........|....5---|2-------|........|........", "4 . 5 . . 5 .", 2, -.2, .55
tune    "horn",     62,  "6---5---|3-------|5---3---|1-------|5---6---|8-------|6---5---|2-------", ". . . 5 6 . .", 2, -.2, .55
