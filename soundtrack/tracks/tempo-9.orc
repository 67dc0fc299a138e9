; Fast Ledger - tempo - two marimbas adding up sixteenths out of step with each other, quick soft feet, a flute between columns
#include "studio.orc"
piece   "Fast Ledger", 126, "E dorian", 4, .03
chords  "A", "Em7:2 Em9:2 A6/E:2 Bm7:2"
chords  "B", "Gmaj9:2 A6:2 Dmaj9/F#:2 Bm7:2"
chords  "C", "Dmaj9:2 Dmaj9/F#:2 Gmaj9:2 A6:2"
chords  "Z", "Em9:4"
form    "AAABBACBABAZ", 1
space   "chamber", .66, 7000
repeats .5, .25
tape    .1, .2
pump    .15
stray   .06
;       player          pattern                                                                     A A A B B A C B A B A Z
wash    "reed",     60,                                                                            ". 2 3 4 4 3 5 4 4 5 3 3", -3
beat    "block",        "x.....o...x.....|x.....o...x..o..",                                       "2 2 3 3 3 3 2 3 4 4 3 2", -4, .35, .15
beat    "feltkick",     "x...x...x...x...",                                                        ". 3 4 5 5 5 2 5 5 6 4 .", 1
beat    "grain",        "x.oxx.oxx.oxx.ox",                                                        ". . 3 3 4 3 3 4 4 4 3 .", -1, -.3
beat    "conga",        "..o..x....o..x.o|..o..x....o.ox..|..o..x....o..x.o|..o..x.o..o.oxoo",     ". . . 3 4 4 . 4 4 5 3 .", -2, -.25, .15
beat    "snap",         "....x.......x...",                                                        ". . . . 3 . . 4 3 4 . .", -3, .1, .2
beat    "tamb",         "......x.......x.",                                                        ". . . . 2 3 . 3 . 3 . .", -6, .2
bass    "upright",  40, "1.....1.1...5...|1.....1.1...7...|1.....1.1...5...|1.....1.3...5.7.",     ". 3 5 . 6 5 . 6 5 6 4 .", 0
bass    "upright",  40, "1-......1-..5-..|1-......3-..5-..",                                       ". . . 5 . . 5 . . . . 4", 0
bass    "sub",      40, "1-----------....|1-------5---....",                                       ". . 2 3 3 3 4 3 3 4 3 2", -5
keys    "marimba",  64, "0.12..0.2.3..2.1|0.12..0.2.31.2..|0.12..0.2.3..3.2",                      "3 4 5 . 5 4 . 5 . 6 4 3", -1, -.3, .2, .15
keys    "marimba",  67, "..2.1.....2.1...|..2.1.....2.0...|..2.1.....1.2...",                      ". 4 4 5 4 5 3 . 5 5 . .", -2, .35, .2, .15
keys    "marimba",  64, "0...2...1...3...|0...2...1...2...",                                       ". . . 4 . . 5 4 4 . . 3", -2, -.1, .25, .2
keys    "kalimba",  74, "0.....1.....2...|................|0.....2.....1...|................",     ". . . . 4 . 4 . 4 5 . .", -5, .2, .3, .35
tune    "flute",    71, "5-------|3-------|........|........|6-------|5-------|........|........", ". . . . 4 . . 4 . 5 . .", -3, .05, .4, .2
