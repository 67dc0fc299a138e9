; Color Study - creative - marimba and clarinet trying small combinations, woodblock for a ruler
#include "studio.orc"
piece   "Color Study", 100, "E dorian", 4, .08
chords  "A", "Em9:2 A6:2 Em9:2 Dmaj9:2"
chords  "B", "Gmaj9:2 F#m7:2 Bm9:2 A6:2"
chords  "Z", "Dmaj9:2 Em9:2"
form    "AABABBAAZ", 3
space   "hall", .82, 7800
repeats .75, .35
tape    .15, .15
;       player           pattern               A A B A B B A A Z
veil    "room",                               "3 3 3 3 3 3 3 3 3", -4
wash    "hollow",   59,                       "2 3 3 4 4 5 4 3 3", -1
wash    "pad",      62,                       ". . . 3 . 4 5 4 3", -2
bass    "upright",  40,  "1..1..5.|1.....7.", ". 4 4 5 5 6 5 5 .", -1
bass    "sub",      40,  "1-------|------..", "3 . . . . . . . 3", -4
keys    "marimba",  64,  "0.21.3.2|0.1.2...", "4 5 . 5 . . 5 4 .", -1, -.2, .25, .1
keys    "marimba",  64,  "01.2.3.1|2.3.1.2.", ". . 5 . 5 6 . . .", -1, -.2, .25, .1
keys    "kalimba",  69,  "..0...2.|....1.3.", ". . 4 4 4 5 5 . 4", -2, .3, .3, .2
beat    "block",         "..o...x...o..x..",  ". 3 . 4 4 5 5 4 .", -2, .25, .15
beat    "conga",         "x.....o...x.o...",  ". . 3 4 4 5 5 . .", -3, -.2, .15
beat    "shaker",        "o.x.o.x.o.x.o.x.",  ". . . 3 4 4 4 . .", -1, .15
tune    "clarinet", 64,  "5.3.1---|........|6.4.2---|........|5.7.5---|........|4.2.7---|........", ". 4 . 5 . . 5 . .", 1, .1, .35, .15
tune    "flute",    71,  "3-2-5---|........|2-3-4---|........|5-4-2---|........|4-6-8---|........", ". . . . 5 5 . . .", 1, .15, .4, .2
