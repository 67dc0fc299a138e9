; Calm Field - relaxation - two chords and an evening, electric piano where the fence ends
#include "studio.orc"
piece   "Calm Field", 66, "A major"
chords  "A", "Aadd9:4 Dmaj9/A:4"
chords  "B", "F#m9:2 C#m7:2 Dmaj9:2 E9sus:2"
chords  "C", "Bm9:2 Dmaj9:2 Aadd9:4"
chords  "Z", "Aadd9:4"
form    "ABACBZ", 5
space   "hall", .9, 6000
repeats 1.5, .35
tape    .35, .15
;       player           pattern               A B A C B Z
veil    "crickets",                           "5 4 4 4 5 5", 2
veil    "leaves",                             "4 5 4 5 4 4", -2
wash    "pad",      57,                       "3 4 5 5 6 5", 0
wash    "strings",  61,                       ". 3 . 4 4 2", -2
bass    "sub",      33,  "1-------|--------", ". 3 4 4 4 3", -3
bass    "felt",     45,  "1---5---|........", "4 4 4 4 5 4", -2, -.15
stab    "rhodes",   61,  "..x-----|........", "4 . 4 . . 4", -1, .1, .35, .15
keys    "rhodes",   64,  "0...2.3.|..1.....", ". 4 . 5 5 .", -2, .1, .35, .15
tune    "horn",     61,  "....3---|2-------|1-------|........|....3---|5-------|3-------|........", ". . 4 . . .", 2, -.2, .5
tune    "rhodes",   73,  "..3---5-|3-------|..7---5-|........|..6---5-|3-------|..2---4-|2-------", ". 4 . . 5 .", 1, .1, .45, .25
tune    "rhodes",   73,  "..4---2-|3-------|..6---4-|3-------|..5---3-|........|..2---1-|........", ". . . 5 . .", 1, .1, .45, .25
