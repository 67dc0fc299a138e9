; notation.orc - how a track is written: piece, chords, form, then one line per lane. The last string
; of a lane has one column per section of the form: . is silent, 1..9 is how intense.

gSquality = " =047 m=037 7=047a maj7=047b m7=037a 6=0479 m6=0379 69=0479e add9=047e madd9=037e \
maj9=047be m9=037ae 9=047ae 13=047ae9 m11=037ae5 m13=037ae9 maj13=047be9 maj7#11=04b6 \
maj9#11=04be6 sus2=027 sus4=057 7sus=057a 9sus=057ae 13sus=057ae9 m7b5=036a dim7=0369 \
mmaj7=037b 5=07 q=05ae "
gSscale = " major=024579b minor=023578a dorian=023579a lydian=024679b mixolydian=024579a \
phrygian=013578a harmonic=023578b "

gibpm, gimetre, giswing, gitonic init 60, 4, 0, 0       ; the piece
gSdegrees = ""
gSplayers = ""                                          ; names, told by the files that hold the instruments
gSdrums = ""
gSweather = ""
gSprog[] init 128                                       ; progressions by letter
gichords, gisections, gilanes, giend init 0, 0, 0, 0
giat[] init 400                                         ; chords: beat, root, bass, intervals
giroot[] init 400
gibass[] init 400
gStones[] init 400
gisec[] init 64                                         ; sections: beat
gigain[] init 64                                        ; lanes: gain, position, sends, bus
gipan[] init 64
gisend[] init 64
giecho[] init 64
gidrum[] init 64
gSrooms = " hall=0 plate=1 chamber=2 "
giroom, gisize, giair init 0, .88, 7000
gidelay, girepeat init .75, .4
giwow, gigrit, giduck, gistray init .3, .5, 0, .1

opcode fault, 0, SS             ; stop the build: what is wrong, and the words that are
  Swhat, Stext xin
  prints "fault\t%s\t%s\n", Swhat, Stext
  exitnow 1
endop

opcode only, 0, SSS             ; every character of a text has to be one of these
  Swhat, Stext, Sallowed xin
  ii = 0
  while ii < strlen(Stext) do
    if strindex(Sallowed, strsub(Stext, ii, ii + 1)) < 0 then
      fault Swhat, Stext
    endif
    ii += 1
  od
endop

opcode hexa, i, Si              ; the character of a string as a number, a = 10
  Sx, ix xin
  ic strchar Sx, ix
  xout ic < 58 ? ic - 48 : ic - 87
endop

opcode entry, S, SSSS           ; the value of a key in " key=value key=value ", else a fault
  Sbook, Skey, Swhat, Stext xin
  Skey strcat strcat(" ", Skey), "="
  ifrom strindex Sbook, Skey
  if ifrom < 0 then
    fault Swhat, Stext
  endif
  Srest strsub Sbook, ifrom + strlen(Skey)
  xout strsub(Srest, 0, strindex(Srest, " "))
endop

opcode word, Si, Si             ; the next word of a line, and where it ended
  Sline, ifrom xin
  while strchar(Sline, ifrom) == 32 do
    ifrom += 1
  od
  ito = ifrom
  while ito < strlen(Sline) && strchar(Sline, ito) != 32 do
    ito += 1
  od
  xout strsub(Sline, ifrom, ito), ito
endop

opcode tonic, ii, S             ; "Ebm9" -> 3 and the 2 characters that said so
  Sname xin
  if strlen(Sname) < 1 then
    fault "a note name is missing", Sname
  endif
  if strchar(Sname, 0) < 65 || strchar(Sname, 0) > 71 then
    fault "no such note", Sname
  endif
  iname[] fillarray 9, 11, 0, 2, 4, 5, 7
  ipc = iname[strchar(Sname, 0) - 65]
  isign strchar Sname, 1
  iup = (isign == 35 ? 1 : (isign == 98 ? -1 : 0))
  xout (ipc + iup + 12) % 12, 1 + abs(iup)
endop

opcode squeeze, Si, S           ; a pattern without spaces and bars, and its steps per bar
  Spattern xin
  Sbare = ""
  isteps = 0
  ii = 0
  while ii < strlen(Spattern) do
    ic strchar Spattern, ii
    if ic == 124 && isteps == 0 then
      isteps strlen Sbare
    elseif ic != 32 && ic != 124 then
      Sbare strcat Sbare, strsub(Spattern, ii, ii + 1)
    endif
    ii += 1
  od
  xout Sbare, isteps == 0 ? strlen(Sbare) : isteps
endop

opcode even, 0, Si              ; every bar of a pattern has to have as many steps as its first
  Spattern, isteps xin
  icount = 0
  ii = 0
  while ii <= strlen(Spattern) do
    ic = (ii < strlen(Spattern) ? strchar(Spattern, ii) : 124)
    if ic == 124 then
      if icount != isteps then
        fault "a bar with a different number of steps", Spattern
      endif
      icount = 0
    elseif ic != 32 then
      icount += 1
    endif
    ii += 1
  od
endop

opcode piece, 0, SiSpo          ; name, tempo, key, beats per bar, swing
  Sname, ibpm, Skey, ibeats, iswing xin
  if ibpm < 40 || ibpm > 160 then
    fault "a tempo outside 40..160", Sname
  endif
  gibpm = ibpm
  gimetre = ibeats == 1 ? 4 : ibeats
  giswing = iswing
  gitonic, iskip tonic Skey
  Smode, iskip word Skey, iskip
  gSdegrees entry gSscale, Smode, "no such scale", Skey
  iseed = 7
  ii = 0
  while ii < strlen(Sname) do
    iseed = (iseed * 31 + strchar(Sname, ii)) % 1000003
    ii += 1
  od
  seed iseed
endop

opcode chord, iiSi, S           ; "G13/D:2" -> its root, bass, tones and bars
  Sname xin
  Schord = Sname
  ibars = 1
  icolon strindex Schord, ":"
  if icolon > 0 then
    Sbars strsub Schord, icolon + 1
    only "the bars of a chord", Sbars, "0123456789"
    if strlen(Sbars) == 0 then
      fault "the bars of a chord", Sname
    endif
    ibars strtod Sbars
    if ibars < 1 then
      fault "the bars of a chord", Sname
    endif
    Schord strsub Schord, 0, icolon
  endif
  iroot, iskip tonic Schord
  ibass = iroot
  islash strindex Schord, "/"
  if islash > 0 then
    ibass, iany tonic strsub(Schord, islash + 1)
    Schord strsub Schord, 0, islash
  endif
  xout iroot, ibass, entry(gSquality, strsub(Schord, iskip), "no such chord", Sname), ibars
endop

opcode chords, 0, SS            ; letter, "Dm9 G13/D:2"
  Sletter, Sline xin
  gSprog[strchar(Sletter, 0)] = Sline
  iat = 0
  while iat < strlen(Sline) do
    Schord, iat word Sline, iat
    if strlen(Schord) > 0 then
      iroot, ibass, Stones, ibars chord Schord
    endif
  od
endop

opcode form, 0, So              ; letters, seconds of ring after the last bar
  Sletters, iring xin
  if strlen(gSdegrees) == 0 then
    fault "piece has to come before form", Sletters
  endif
  ibeat = 0
  is = 0
  while is < strlen(Sletters) do
    gisec[is] = ibeat
    Sline = gSprog[strchar(Sletters, is)]
    if strlen(Sline) < 1 then
      fault "a section without chords", Sletters
    endif
    iat = 0
    while iat < strlen(Sline) do
      Schord, iat word Sline, iat
      if strlen(Schord) > 0 then
        giroot[gichords], gibass[gichords], gStones[gichords], ibars chord Schord
        giat[gichords] = ibeat
        gichords += 1
        ibeat += ibars * gimetre
      endif
    od
    is += 1
  od
  gisections = is
  gisec[is] = ibeat
  giat[gichords] = ibeat
  giend = ceil((ibeat * 60 / gibpm + (iring == 0 ? 3 : iring)) * sr / 1024) * 1024 / sr - 1 / kr  ; whole AAC frames
  schedule "echo", 0, giend
  schedule "reverberation", 0, giend
  schedule "master", 0, giend
endop

opcode columns, S, SSS          ; the levels of a lane, one for each section of the form
  Splayer, Slevels, Sbook xin
  if strlen(Splayer) < 1 || strindex(Sbook, strcat(strcat(" ", Splayer), " ")) < 0 then
    fault "no such player here", Splayer
  endif
  if gisections < 1 then
    fault "form has to come before the lanes", Splayer
  endif
  Sbare, iany squeeze Slevels
  only "a level is . or 1..9", Slevels, " .123456789"
  if strlen(Sbare) != gisections then
    fault sprintf("%d levels for %d sections", strlen(Sbare), gisections), Slevels
  endif
  xout Sbare
endop

opcode lane, i, iijji           ; gain in dB, position, room, echo, drum -> number
  igain, ipan, isend, iecho, idrum xin
  if gilanes == 64 then
    fault "more than 64 lanes", "form"
  endif
  ith = gilanes
  gigain[ith] = ($SOLO < 0 || $SOLO == ith) ? ampdb(igain) : 0
  gipan[ith] = ipan
  gisend[ith] = isend < 0 ? .3 : isend
  giecho[ith] = iecho < 0 ? 0 : iecho
  gidrum[ith] = idrum
  gilanes += 1
  xout ith
endop

opcode level, i, Sii            ; intensity 0..1 of a section, leaning towards its neighbours
  Slevels, isec, ix xin
  ihere strchar Slevels, isec
  inear = ihere
  if ix < .5 && isec > 0 then
    inear strchar Slevels, isec - 1
  elseif ix > .5 then
    inear strchar Slevels, isec + 1
  endif
  inear = inear < 49 ? ihere : inear
  xout ihere < 49 ? 0 : (ihere - 48 + (inear - ihere) * abs(ix - .5)) / 9
endop

opcode voicing, i[], ii         ; the tones of a chord around a centre, ascending; a rich chord
  ichord, icentre xin           ; leaves its root to the bass
  inotes[] init 12
  ith = 0
  irich = (strlen(gStones[ichord]) > 4 || strindex(gStones[ichord], "b") > 0) ? 1 : 0
  inote = icentre - 6
  while inote < icentre + 6 do
    ii = irich
    while ii < strlen(gStones[ichord]) do
      if (giroot[ichord] + hexa(gStones[ichord], ii)) % 12 == inote % 12 then
        inotes[ith] = inote
        ith += 1
      endif
      ii += 1
    od
    inote += 1
  od
  trim_i inotes, ith
  xout inotes
endop

opcode spread, i[], i[]         ; open position: every other tone up an octave, no minor ninths
  inotes[] xin
  iodd = 1
  ii = 1
  while ii < lenarray(inotes) do
    if inotes[ii] - inotes[ii - 1] == 1 then
      iodd = (ii - 1) % 2
    endif
    ii += 1
  od
  ii = iodd
  while ii < lenarray(inotes) && lenarray(inotes) > 3 do
    inotes[ii] = inotes[ii] + 12
    ii += 2
  od
  xout inotes
endop

opcode near, i, ii              ; a pitch class as the note nearest to a centre
  ipc, icentre xin
  xout icentre - 6 + (ipc - icentre + 126) % 12
endop

opcode degree, i, iii           ; a bass figure (1 3 5 7 8 ...) over a chord as a note: the third and
  ichord, ifigure, icentre xin  ; the seventh of the chord, other figures bent into the scale
  iwide[] fillarray 0, 0, 2, 4, 5, 7, 9, 10, 12, 14
  iup = iwide[ifigure]
  ii = 0
  while ii < strlen(gStones[ichord]) do
    it hexa gStones[ichord], ii
    if (ifigure == 3 || ifigure == 7) && abs(it - iwide[ifigure]) == 1 then
      iup = it
    endif
    ii += 1
  od
  if ifigure == 2 || ifigure == 6 || ifigure == 9 then
    ifits = 0
    ii = 0
    while ii < strlen(gSdegrees) do
      ifits += (giroot[ichord] + iup + 12 - gitonic) % 12 == hexa(gSdegrees, ii) ? 1 : 0
      ii += 1
    od
    iup -= 1 - ifits
  endif
  ibase near gibass[ichord], icentre
  xout ibase + iup + (ifigure == 1 || ifigure == 8 ? 0 : (giroot[ichord] - gibass[ichord]) % 12)
endop

opcode step, i, ii             ; a melody figure (1..9, a..g one octave below) as a note
  ichar, icentre xin
  istep = ichar < 58 ? ichar - 49 : ichar - 97 - 7
  ioctave = floor(istep / 7)
  xout near(gitonic, icentre) + hexa(gSdegrees, istep - 7 * ioctave) + 12 * ioctave
endop

opcode arch, i, i               ; a phrase of four bars leans into its third and lets go of its fourth
  ibeats xin
  xout 1 + .06 * sin((ibeats / gimetre % 4 - 1) * $M_PI / 2.5)
endop

opcode note, 0, Siiiiii          ; player, time, duration, pitch, velocity, lane, position
  Splayer, iwhen, idur, inote, ivel, ilane, ipos xin
  schedule Splayer, iwhen, idur, inote, ivel, ilane, ipos
  if $TRACE == 1 then
    prints "note %8.3f %7.3f %-8s %3d %.2f %2d\n", iwhen, idur, Splayer, inote, ivel, ilane
  endif
endop

opcode perform, 0, iSiSSi       ; way of playing, player, centre, pattern, levels, lane
  iway, Splayer, icentre, Spattern, Slevels, ilane xin
  ibeat = 60 / gibpm
  Sbook = gSplayers
  Sfigures = " |.-123456789"
  if iway == 4 then
    Sbook = gSdrums
    Sfigures = " |.Xxo"
  elseif iway == 0 then
    Sfigures = " |.-0123456789?*"
  elseif iway == 1 then
    Sfigures = " |.-123456789abcdefg"
  elseif iway == 3 then
    Sfigures = " |.-x"
  endif
  Slevels columns Splayer, Slevels, Sbook
  only "a figure this kind of lane does not know", Spattern, Sfigures
  Swritten = Spattern
  Spattern, isteps squeeze Spattern
  if isteps < 1 then
    fault "an empty pattern", Swritten
  endif
  even Swritten, isteps
  istep = gimetre / isteps
  ilength strlen Spattern
  isec = 0
  while isec < gisections do
    it = gisec[isec]
    ith = 0
    ichord = 0
    while it < gisec[isec + 1] - .001 && level(Slevels, isec, .5) > 0 do
      ic strchar Spattern, ith % ilength
      if ic != 46 && ic != 45 then
        ikeep = 1
        while strchar(Spattern, (ith + ikeep) % ilength) == 45 && ikeep < ilength do
          ikeep += 1
        od
        while giat[ichord + 1] <= it + .001 do
          ichord += 1
        od
        inext = giat[ichord + 1]
        ilevel level Slevels, isec, (it - gisec[isec]) / (gisec[isec + 1] - gisec[isec])
        ibar = it % gimetre
        iaccent = (ibar < .01 ? 1 : (it % 1 < .01 ? .94 : .88)) + .05 * sin(it * $M_PI / gimetre / 2)
        ivel = (.3 + .7 * ilevel) * iaccent * arch(it - gisec[isec]) * random:i(.94, 1.04)
        ilate = (ith % 2 == 1 ? giswing * istep : 0) * ibeat
        iwhen = it * ibeat + ilate + .012 + random:i(-.006, .006)
        idur = ikeep * istep * ibeat
        if iway == 0 then               ; keys: tones of the chord, ringing under the pedal
          inotes[] voicing ichord, icentre
          inum lenarray inotes
          irung = (inext - it) * ibeat * .98
          istrays = random:i(0, 1) < gistray && ith >= ilength && ith % isteps != 0 ? 1 : 0
          if ic == 42 then              ; * the whole chord, rolled
            ik = 0
            while ik < inum do
              note Splayer, iwhen + ik * random:i(.012, .035), irung, inotes[ik], ivel * (.8 + .2 * ik / inum), ilane, (ik / inum - .4) * .5
              ik += 1
            od
          elseif ic != 63 || random:i(0, 1) < .45 then
            ik = ic == 63 ? int(random:i(0, inum * 2 - .01)) : ic - 48
            ik = istrays == 1 ? max(0, ik + (random:i(0, 1) < .5 ? 1 : -1)) : ik
            ivel *= istrays == 1 ? .8 : 1
            inote = inotes[ik % inum] + 12 * int(ik / inum)
            note Splayer, iwhen, irung, inote, ivel, ilane, (inote - 64) / 60
          endif
        elseif iway == 1 then           ; tune: degrees of the scale, held as written
          note Splayer, iwhen, idur * 1.02, step(ic, icentre), ivel, ilane, 0
        elseif iway == 2 then           ; bass: degrees of the chord
          note Splayer, iwhen, idur * .97, degree(ichord, ic - 48, icentre), ivel, ilane, 0
        elseif iway == 3 then           ; stab: the chord, as long as written
          inotes[] voicing ichord, icentre
          ik = 0
          while ik < lenarray(inotes) do
            note Splayer, iwhen, idur, inotes[ik], ivel, ilane, (ik / lenarray(inotes) - .4) * .8
            ik += 1
          od
        elseif iway == 4 then           ; beat: X x o loud, normal, soft
          note Splayer, it * ibeat + ilate + .012, .5, icentre, ivel * (ic == 88 ? 1 : (ic == 120 ? .85 : .55)), ilane, 0
        endif
      endif
      ith += 1
      it = gisec[isec] + ith * istep
    od
    isec += 1
  od
endop

opcode keys, 0, SiSSoojj        ; player, centre, pattern, levels, dB, pan, room, echo
  Sp, ic, Spat, Slev, ig, ip, ih, ie xin
  perform 0, Sp, ic, Spat, Slev, lane(ig, ip, ih, ie, 0)
endop
opcode tune, 0, SiSSoojj
  Sp, ic, Spat, Slev, ig, ip, ih, ie xin
  perform 1, Sp, ic, Spat, Slev, lane(ig, ip, ih, ie, 0)
endop
opcode bass, 0, SiSSoojj
  Sp, ic, Spat, Slev, ig, ip, ih, ie xin
  perform 2, Sp, ic, Spat, Slev, lane(ig, ip, ih < 0 ? .04 : ih, ie, 0)
endop
opcode stab, 0, SiSSoojj
  Sp, ic, Spat, Slev, ig, ip, ih, ie xin
  perform 3, Sp, ic, Spat, Slev, lane(ig, ip, ih, ie, 0)
endop
opcode beat, 0, SSSoojj         ; drum, pattern, levels, dB, pan, room, echo
  Sp, Spat, Slev, ig, ip, ih, ie xin
  perform 4, Sp, 60, Spat, Slev, lane(ig, ip, ih < 0 ? .06 : ih, ie, 1)
endop

opcode wash, 0, SiSoojj         ; every chord held and blended into the next, open voicing
  Sp, icentre, Slevels, ig, ip, ih, ie xin
  ilane lane ig, ip, ih < 0 ? .45 : ih, ie, 0
  Slevels columns Sp, Slevels, gSplayers
  ichord = 0
  isec = 0
  while ichord < gichords do
    while gisec[isec + 1] <= giat[ichord] + .001 do
      isec += 1
    od
    ilevel level Slevels, isec, (giat[ichord] - gisec[isec]) / (gisec[isec + 1] - gisec[isec])
    if ilevel > 0 then
      inotes[] spread voicing(ichord, icentre)
      idur = (giat[ichord + 1] - giat[ichord]) * 60 / gibpm
      ik = 0
      while ik < lenarray(inotes) do
        note Sp, giat[ichord] * 60 / gibpm + random:i(0, .04), idur, inotes[ik], (.3 + .7 * ilevel) * random:i(.92, 1.02), ilane, (ik % 2 * 2 - 1) * .12 * (ik + 1)
        ik += 1
      od
    endif
    ichord += 1
  od
endop

opcode veil, 0, SSooj           ; a texture over the whole track: player, levels, dB, pan, room
  Sp, Slevels, ig, ip, ih xin
  ilane lane ig, ip, ih < 0 ? .1 : ih, 0, 0
  Slevels columns Sp, Slevels, gSweather
  ishape ftgen 0, 0, -(gisections + 2), -2, 0
  isec = 0
  while isec < gisections do
    tablew level(Slevels, isec, .5), isec + 1, ishape
    isec += 1
  od
  tablew table(isec, ishape) * .6, isec + 1, ishape
  tablew table(1, ishape) * .6, 0, ishape
  schedule Sp, 0, giend, ishape, 0, ilane, 0
endop

opcode space, 0, Sii            ; hall, plate or chamber; size 0..1, brightness in Hz
  Sroom, gisize, giair xin
  Snumber entry gSrooms, Sroom, "no such room", Sroom
  giroom strtod Snumber
endop
opcode repeats, 0, ii           ; echo time in beats, feedback
  gidelay, girepeat xin
endop
opcode tape, 0, ii              ; wow 0..1, grit 0..1
  giwow, gigrit xin
endop
opcode pump, 0, i               ; how much the kick pushes the music down, 0..1
  giduck xin
endop
opcode stray, 0, i              ; how often a repeat of keys leaves the written page, 0..1
  gistray xin
endop

instr checked                   ; runs once the whole track is read: without a form it would play forever
  if giend == 0 then
    fault "a track needs piece, chords and form", "form"
  elseif gilanes == 0 then
    fault "a track without lanes", "form"
  endif
endin
schedule "checked", 0, .1
