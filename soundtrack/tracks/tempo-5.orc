; Forward Desk - tempo - deep house before lunch: warm minor ninths, a rolling bass, no drops
#include "studio.orc"
piece   "Forward Desk", 120, "F minor", 4, .12
chords  "A", "Fm9:2 Dbmaj9:2 Bbm9:2 Cm7:2"
chords  "B", "Dbmaj9:2 Eb9sus:2 Cm7:2 Fm9:2"
form    "AAAABBAABBA", 3
space   "hall", .82, 8500
repeats .75, .4
tape    .1, .35
pump    .45
;        player         pattern                                A A A A B B A A B B A
veil     "hiss",                                              "4 3 3 3 3 3 4 3 3 3 4", -8
wash     "pad", 62,                                           "4 4 4 5 5 5 6 5 5 5 5", -1
beat     "kick",        "x...x...x...x...",                   "5 7 7 7 7 7 3 7 7 7 6"
beat     "hat",         "..x...x...x...x.",                   "4 5 6 6 6 6 5 6 6 6 5"
beat     "shaker",      "oxoXoxoXoxoXoxoX",                   ". . 4 5 5 6 5 5 6 6 4", 2, .25
beat     "open",        "..........x.....",                   ". . . 4 5 5 . 5 5 5 .", 0, -.2
beat     "clap",        "....x.......x...",                   ". . 5 6 6 6 . 6 6 6 .", 1, 0, .2
beat     "rim",         "...x......x..x..|......x....x....",  ". 4 4 5 5 5 4 5 5 5 4", 0, -.3, .25
bass     "mono", 36,    "..1..1..8..1..7.|..1..1..5..1.7..",  ". 5 6 6 . . . 6 . . 4", -3
bass     "mono", 36,    "..1.1...8.1...5.|..1.1...7.8.5.1.",  ". . . . 6 6 . . 6 6 .", -3
bass     "sub", 36,     "..1-----------..|..1---------5-..",  ". . . . . . 5 . . . .", -4
stab     "chord", 62,   "...x--....x--...|...x--.......x--",  "3 4 5 6 6 6 4 6 6 6 4", -1, 0, .3, .25
keys     "rhodes", 62,  "*.......|....*...",                  ". . . . 5 5 6 . 5 5 .", -1, .1, .35
keys     "pluck", 74,   "0..2..3..1..2..4",                   ". . . 4 . 5 . 4 5 6 .", -4, .2, .3, .4
tune     "rhodes", 77,  "5---..3-4-----..|................|7---..5-4-----..|................|5---..3-1-----..|................|2-----3-5---....|................", ". . . . . 5 6 . . 5 .", 1, -.1, .4, .3
