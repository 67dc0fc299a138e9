; Soft Shelter - relaxation - a low warm rumble behind the wall, a small harmonium in the corner
#include "studio.orc"
piece   "Soft Shelter", 56, "F major"
chords  "A", "Fmaj9:2 Bbmaj9/F:2 Am7:2 Dm9:2"
chords  "B", "Gm9:2 C9sus:2 Bbmaj9:2 Fmaj9/A:2"
chords  "Z", "Fadd9:2"
form    "ABABAZ", 4
space   "hall", .88, 4200
repeats 1.5, .35
tape    .5, .15
;       player           pattern               A B A B A Z
veil    "brown",                              "6 5 6 5 6 5", 3
veil    "room",                               "4 4 4 5 4 4", -3
wash    "reed",     57,                       "3 4 5 6 5 4"
wash    "pad",      64,                       ". 3 . 4 3 .", -3
bass    "sub",      36,  "1-------|------..", "3 4 4 5 4 3", -3
bass    "felt",     46,  "1---..5-|........", "4 4 4 5 5 4", -1, -.15
stab    "rhodes",   60,  "....x---|--------", "3 . 4 . 5 .", -3, .15, .35, .1
keys    "rhodes",   62,  "..0.2...|..1.3...", ". 4 . 5 . 4", -2, .15, .35, .15
tune    "rhodes",   72,  "5-----3-|1-------|........|6---5---|........|3-------|4---3---|1-------", ". . 4 . 5 .", 1, -.1, .4, .25
tune    "clarinet", 65,  "..2---4-|5-------|..5-4---|2-------|..4---6-|5-------|3-------|........", ". . . 5 . .", 0, -.2, .45
