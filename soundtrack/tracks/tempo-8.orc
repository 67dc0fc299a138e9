; Step Line - tempo - brushes and an upright in a straight walk, a quiet guitar keeping step beside them
#include "studio.orc"
piece   "Step Line", 118, "Bb minor", 4, .26
chords  "I", "Bbm9:4 Gbmaj9:2 Fm7:2"
chords  "A", "Bbm9:4 Ebm9:2 Fm7:2"
chords  "B", "Gbmaj9:2 Ab6:2 Bbm9/Db:2 Fm7:2"
chords  "C", "Ebm9:2 Ab9:2 Dbmaj9:2 Gbmaj9:2"
chords  "Z", "Bbm9:4"
form    "IAABACBABAZ", 1.5
space   "chamber", .62, 4800
repeats 1, .2
tape    .3, .35
pump    .1
;       player          pattern                                                                     I A A B A C B A B A Z
veil    "room",                                                                                    "3 3 3 3 3 3 3 3 3 3 3", -8
wash    "bowed",    63,                                                                            "3 3 3 4 3 6 4 4 5 4 3", -1
beat    "swirl",        "x...x...|x...x...",                                                       "2 3 3 3 4 4 4 4 4 3 2", -3, .2, .15
beat    "softride",     "x.xxx.xx",                                                                ". . 3 4 4 3 4 4 5 4 .", -2, -.3
beat    "feltkick",     "x...x...|x...x..o|x...x...|x..ox...",                                     ". 3 4 4 5 2 5 5 5 4 .", 2
beat    "brush",        "..x...x.|..x...xo|..x...x.|..x..ox.|..x...x.|..x...xo|..x...x.|.ox.oox.", ". 3 4 4 4 4 4 5 5 4 3", 2, .1, .1
beat    "stick",        "......o.|...o..o.|......o.|...o.oo.",                                     ". . . 3 3 . 3 4 4 3 .", -3, -.15, .2
bass    "upright",  34, "1.5.1.5.|1.5.7.5.|1.5.1.3.|1.3.5.7.|1.5.1.5.|1.3.5.3.|1.5.1.5.|8.7.5.3.", ". 4 5 5 5 . 5 6 6 5 .", 0
bass    "upright",  34, "1-----5-|1-----..|1-----3-|1---....",                                     "4 . . . . 5 . . . . 4", 0
stab    "rhodes",   61, "...x-...|........|...x-..x|-.......",                                     "3 4 4 5 4 5 5 4 6 5 3", -2, -.1, .25, .1
stab    "jazz",     65, "........|.x-...x-|........|...x-.x-",                                     ". . 4 4 4 . 5 5 5 4 .", -4, .3, .2, .1
keys    "vibes",    68, "0...1...|..2.....|1...3...|........",                                     "4 . . . . 5 . 4 . . 4", -2, .25, .35, .2
tune    "jazz",     70, "....5-4-|3-------|........|........|.......2|1---....|........|........", ". . . 4 . 5 . . 5 . .", 1, -.2, .3, .15
tune    "clarinet", 65, "........|........|....3---|2-------|........|........|........|........", ". . . . 4 . . 4 . 4 .", -2, .15, .35
