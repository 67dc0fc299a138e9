; Clear Sprint - tempo - plucked sixteenths over an open fifth, a tight motor
#include "studio.orc"
piece   "Clear Sprint", 122, "D minor", 4, .04
chords  "A", "Dm9:2 Bbmaj7:2 F:2 C:2"
chords  "B", "Gm9:2 Bbmaj7:2 Dm7:2 Csus4 C"
form    "AAABBAABBAA", 3
space   "hall", .84, 9000
repeats .75, .45
tape    .1, .3
pump    .35
;        player         pattern                                A A A B B A A B B A A
wash     "pad", 59,                                           "4 4 4 5 5 4 5 5 6 5 4"
beat     "kick",        "x...x...x...x...",                   ". 6 7 7 7 7 . 7 7 7 6"
beat     "hat",         "xoXoxoXoxoXoxoXo",                   "3 4 5 5 6 5 4 6 6 5 4", 0, .1
beat     "open",        "..x...x...x...x.",                   ". . 4 5 5 5 . 5 6 5 .", -2, -.15
beat     "rim",         "....x.......x..o",                   ". 4 5 5 6 5 4 6 6 5 4", 0, .1, .3
beat     "tom",         "...........x..x.",                   ". . . 4 5 . . 5 5 . .", -3, .2
bass     "mono", 38,    "1.11..1.1.11..5.",                   ". 5 5 6 6 6 . 6 6 6 5", -2
bass     "sub", 38,     "1-------|------..",                  ". . . . . . 5 . . . .", -4
keys     "pluck", 62,   "0.1.2.3.1.2.0.2.",                   "4 5 5 . . 5 5 . . 5 4", -1, -.15, .3, .3
keys     "pluck", 67,   "0.21.3.2.41.2.3.",                   ". . . 5 6 . 4 6 6 . .", -1, .15, .3, .35
stab     "chord", 62,   "..........x-----",                   ". . 4 5 5 5 . 5 5 5 .", -2, 0, .35, .3
tune     "bell", 74,    "5-------3-------|2-------1-------|................|................|5-------6-------|7-------5-------|................|................", ". . . . 4 . 5 . 5 . .", 2, 0, .5, .35
