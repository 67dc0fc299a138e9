; Open Margin - focus - electric piano chords with room to write between them
#include "studio.orc"
piece   "Open Margin", 80, "Bb major"
chords  "A", "Ebmaj9:2 Dm7:2 Cm9:2 F9sus:2"
chords  "B", "Gm9:2 Cm9:2 Ebmaj9:2 F9sus:2"
chords  "Z", "Ebmaj9:2 Bbadd9:2"
form    "AABABAZ", 4
space   "hall", .84, 5000
repeats .75, .35
tape    .5, .2
;        player          pattern                          A A B A B A Z
veil     "room",                                         "5 5 5 5 5 5 5", -3
veil     "hiss",                                         "3 3 3 3 3 3 3", -3
wash     "pad", 62,                                      "3 3 4 4 5 4 3", -2
bass     "sub", 36,      "1---..1-|----5-..",            ". 4 4 4 5 4 3", -3
stab     "rhodes", 62,   "x-------|....x---",            "4 4 . 5 . 5 4", -2, -.1, .3, .1
stab     "rhodes", 62,   "x-----x-|------..",            ". . 4 . 5 . .", -2, -.1, .3, .1
beat     "brush",        "....x.......x...",             ". . 3 4 4 3 .", -1, .2
beat     "shaker",       "..o...o...o...o.",             ". . . 3 4 3 .", -3, -.3
tune     "rhodes", 74,   "....5-3-|........|....4-2-|........|..5---3-|........|2-------|........", ". 4 . 5 . 4 .", 1, .15, .4, .35
tune     "bell", 74,     "5.......|....3...|........|4.......|....2...|........|5.......|........", ". . 3 . 4 . .", 0, .25, .5, .3
