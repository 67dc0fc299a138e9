; Task Runner - tempo - bright organ house with a skipping bass, the same smile all day
#include "studio.orc"
piece   "Task Runner", 119, "Ab major", 4, .1
chords  "A", "Abmaj9:2 Fm9:2 Dbmaj9:2 Eb9sus:2"
chords  "B", "Bbm9:2 Cm7:2 Dbmaj9:2 Eb6:2"
form    "AAABBAABBBA", 2
space   "hall", .8, 9200
repeats .75, .35
tape    .1, .35
pump    .4
;       player          pattern                               A A A B B A A B B B A
wash    "strings", 60,                                       "3 4 4 4 4 5 5 5 5 5 4", -2
wash    "pad",     57,                                       ". 3 3 3 4 4 4 4 4 4 3", -3
beat    "kick",         "x...x...x...x...",                  "6 7 7 7 7 7 3 7 7 7 6"
beat    "clap",         "....x.......x...",                  ". 4 5 5 6 6 4 6 6 6 5", 0, 0, .2
beat    "open",         "..x...x...x...x.",                  ". . 4 5 5 2 5 5 5 4 .", -1, .15
beat    "shaker",       "oxoXoxoXoxoXoxoX",                  "4 4 5 5 5 5 5 5 5 5 5", 1, -.25
beat    "conga",        "...x..x....x.x..",                  ". . . 4 4 5 4 5 5 5 4", -2, .3, .15
bass    "organ",   37,  "1..1..8...1..5..|1..1..8..7.5....", "4 5 6 6 6 6 4 6 6 6 5", -4
bass    "sub",     37,  "1---....1---....",                  "3 4 4 4 4 . 4 4 4 4 4", -5
stab    "organ",   64,  "x..x..x...x..x..|x..x..x....x....", "4 5 5 6 6 5 . 6 6 6 5", -3, .1, .2, .2
stab    "grand",   64,  "..x-..x-..x-..x-",                  ". . . 4 5 . 5 5 5 5 4", -4, -.2, .2, .1
keys    "kalimba", 72,  "0..1..2..1..0...",                  ". . 4 . 5 5 4 5 6 5 .", -2, .25, .3, .35
tune    "vibes",   73,  "5---6---5-------|................|3---5---2-------|................", ". . . . 4 . 5 . . 5 .", 1, -.1, .4, .3
