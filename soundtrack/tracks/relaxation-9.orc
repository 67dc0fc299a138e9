; Warm Tide - relaxation - three beats out and three beats back, marimba under bowed metal
#include "studio.orc"
piece   "Warm Tide", 62, "Eb major", 3
chords  "A", "Ebmaj9:2 Abmaj9/Eb:2 Cm9:2 Gm7:2"
chords  "B", "Abmaj9:2 Gm7:2 Fm9:2 Bb9sus:2"
chords  "Z", "Ebmaj9:4"
form    "AABABABZ", 4
space   "hall", .9, 6200
repeats 1.5, .35
tape    .3, .15
;       player           pattern                         A A B A B A B Z
veil    "surf",                                         "6 6 5 6 6 5 6 6"
wash    "bowed",    58,                                 "3 4 4 4 5 5 4 3", -1
wash    "pad",      55,                                 ". 3 3 4 4 5 4 3", -2
bass    "fretless", 36,  "1-----|..5---",               ". 3 4 4 5 5 4 .", -3
bass    "sub",      36,  "1-----|------",               "3 . . . . . . .", -3
keys    "marimba",  62,  "0.1.2.|..1...",               "4 5 . 5 . 5 5 .", -2, -.2, .3, .15
keys    "marimba",  62,  "0.2.3.|1.2...",               ". . 5 . 5 . . 4", -2, -.2, .3, .15
keys    "felt",     67,  "..?...|......|....?.|......", ". 3 . 4 . 5 . 3", -1, .2, .4, .2
tune    "clarinet", 70,  "5-----|3-----|4-----|3-----|2-----|1-----|2-----|......", ". . . 5 . 5 . .", 1, .15, .45
tune    "clarinet", 70,  "3---2-|1-----|2---3-|5-----|4---3-|1-----|4-----|2-----", ". . 4 . 5 . 6 .", 1, .15, .45
