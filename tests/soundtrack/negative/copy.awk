# A disguised copy of a piece: another title (and so another seed), three semitones
# higher, eight percent faster.
BEGIN {
    FS = OFS = "\""
    split("C C# D Eb E F F# G Ab A Bb B", name, " ")
    for (i = 1; i <= 12; i++) place[name[i]] = i - 1
    split("Db Gb D# G# A#", other, " ")
    split("C# F# Eb Ab Bb", same, " ")
    for (i = 1; i <= 5; i++) place[other[i]] = place[same[i]]
}

function higher(words,    done, root) {
    while (match(words, /(^|[ \/])[A-G][#b]?/)) {
        root = substr(words, RSTART, RLENGTH)
        done = done substr(words, 1, RSTART - 1)
        if (root ~ /^[ \/]/) {
            done = done substr(root, 1, 1)
            root = substr(root, 2)
        }
        done = done name[(place[root] + 3) % 12 + 1] "\t"
        words = substr(words, RSTART + RLENGTH)
    }
    gsub(/\t/, "", done)
    return done words
}

function scaled(text, factor, summand) {
    match(text, /[0-9]+/)
    return substr(text, 1, RSTART - 1) int(substr(text, RSTART, RLENGTH) * factor + summand + .5) substr(text, RSTART + RLENGTH)
}

/^piece/ { $2 = "Copy of " $2; $3 = scaled($3, 1.08, 0); $4 = higher($4) }
/^chords/ { $4 = higher($4) }
/^(wash|keys|stab|bass|tune)/ { $3 = scaled($3, 1, 3) }
{ print }
