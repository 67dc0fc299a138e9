; players.orc - what the players have in common: the soundfont, the tables, and the parts an instrument is made of.
; Every player takes p4 note, p5 velocity, p6 lane, p7 position. At level 5 and 0 dB washes sit near -24 LUFS,
; keys and tunes near -24, basses near -22.

gisf sfload "FluidR3_GM.sf2"        ; found through SSDIR
giprogram = 0
while giprogram < 128 do
  gidone sfpreset giprogram, 0, gisf, giprogram
  giprogram += 1
od
gisine ftgen 0, 0, 8192, 10, 1
gipipe ftgen 0, 0, 8192, 10, 1, .34, .12, .05, .03, .012, .008      ; a stopped pipe, for the tape organ
giviol ftgen 0, 0, 8192, 10, 1, .62, .5, .36, .3, .2, .17, .13, .1, .09, .06, .05, .04, .03, .025, .02

gaL, gaR, gaDrumL, gaDrumR, gaRoomL, gaRoomR, gaEchoL, gaEchoR init 0, 0, 0, 0, 0, 0, 0, 0
gkpump init 1

opcode send, 0, aaii            ; a player to the desk
  aL, aR, ilane, ipan xin
  ipos = limit(gipan[ilane] + ipan, -1, 1)
  aL *= gigain[ilane] * 1.414 * cos((ipos + 1) * $M_PI / 4)
  aR *= gigain[ilane] * 1.414 * sin((ipos + 1) * $M_PI / 4)
  if gidrum[ilane] == 1 then
    gaDrumL += aL
    gaDrumR += aR
  else
    gaL += aL
    gaR += aR
  endif
  gaRoomL += aL * gisend[ilane]
  gaRoomR += aR * gisend[ilane]
  if giecho[ilane] > 0 then
    gaEchoL += aL * giecho[ilane]
    gaEchoR += aR * giecho[ilane]
  endif
endop

giwarm, gidark, giglass, gibowed, gihollow, gireed, gihaze, giverre, gisteam init 0, 1, 2, 3, 4, 5, 6, 7, 8
gitimbre[] init 27
givowel[] init 48

opcode timbre, ii, ii           ; kind, note -> a wide table for that register and its pitch, made when first asked for
  ikind, inote xin
  ireg = (inote < 68 ? 0 : (inote < 88 ? 1 : 2))
  ifund = 130.8128 * 4 ^ ireg
  if gitimbre[ikind * 3 + ireg] == 0 then
    if ikind == 0 then
      it ftgen 0, 0, 2^18, "padsynth", ifund, 28, 1, 1, 1, 1, 1, .55, .42, .2, .22, .1, .1, .05, .05, .03
    elseif ikind == 1 then
      it ftgen 0, 0, 2^18, "padsynth", ifund, 22, 1, 1, 1, 1, 1, .3, .12, .05, .03
    elseif ikind == 2 then
      it ftgen 0, 0, 2^18, "padsynth", ifund, 14, 1, 1, 1, 1, 1, 0, .12, .3, 0, 0, .06, .1, 0, 0, 0, .03
    elseif ikind == 3 then
      it ftgen 0, 0, 2^18, "padsynth", ifund, 46, 1, 1, 1, 1, 1, .8, .7, .55, .5, .42, .36, .3, .27, .24, .2, .18, .16, .14, .12, .1, .09, .08, .07, .06
    elseif ikind == 4 then
      it ftgen 0, 0, 2^18, "padsynth", ifund, 18, 1, 1, 1, 1, 0, .38, 0, .2, 0, .1, 0, .06, 0, .03
    elseif ikind == 5 then
      it ftgen 0, 0, 2^18, "padsynth", ifund, 7, 1, 1, 1, .8, .9, .6, .5, .42, .3, .25, .2, .16, .12, .1, .08
    elseif ikind == 6 then      ; the upper half of the warm one
      it ftgen 0, 0, 2^18, "padsynth", ifund, 34, 1, 1, 1, .5, .7, .6, .2, .36, .12, .2, .05, .1, .03, .05
    elseif ikind == 7 then      ; glass, its fifths instead of its octaves
      it ftgen 0, 0, 2^18, "padsynth", ifund, 16, 1, 1, 1, .9, .25, .34, .1, 0, .16, 0, .02, .05
    elseif ikind == 8 then      ; almost only breath
      it ftgen 0, 0, 2^18, "padsynth", ifund, 70, 1, 1, 1, 1, .3, .2, .06, .08, .02, .03
    endif
    gitimbre[ikind * 3 + ireg] = it
  endif
  xout gitimbre[ikind * 3 + ireg], ifund
endop

opcode formant, i, iiii         ; how far a mouth lets a frequency through: Hz, centre, width, strength
  ihz, icentre, iwidth, istrong xin
  ix = (ihz - icentre) / iwidth
  xout istrong * exp(0 - ix * ix)
endop

opcode voiced, i, iii           ; how strong a partial of a sung note is: its number, its Hz, vowel 0 ah, 1 oo
  inumber, ihz, ioo xin
  if ioo == 0 then
    ishape = .06 + formant(ihz, 680, 260, 1) + formant(ihz, 1100, 220, .5) + formant(ihz, 2600, 380, .14)
  else
    ishape = .02 + formant(ihz, 330, 190, 1) + formant(ihz, 740, 170, .22) + formant(ihz, 2400, 300, .02)
  endif
  xout ishape / sqrt(inumber) / (1 + (ihz / 3500) ^ 2)
endop

opcode vowel, ii, ii            ; vowel, note -> a table of voices and its pitch; formants stay where they are
  ioo, inote xin
  ireg = limit(int(inote / 5), 0, 23)
  ifund = mtof:i(ireg * 5 + 2)
  if givowel[ireg * 2 + ioo] == 0 then
    i1 voiced 1, ifund, ioo
    i2 voiced 2, ifund * 2, ioo
    i3 voiced 3, ifund * 3, ioo
    i4 voiced 4, ifund * 4, ioo
    i5 voiced 5, ifund * 5, ioo
    i6 voiced 6, ifund * 6, ioo
    i7 voiced 7, ifund * 7, ioo
    i8 voiced 8, ifund * 8, ioo
    i9 voiced 9, ifund * 9, ioo
    i10 voiced 10, ifund * 10, ioo
    i11 voiced 11, ifund * 11, ioo
    i12 voiced 12, ifund * 12, ioo
    i13 voiced 13, ifund * 13, ioo
    i14 voiced 14, ifund * 14, ioo
    i15 voiced 15, ifund * 15, ioo
    i16 voiced 16, ifund * 16, ioo
    it ftgen 0, 0, 2^17, "padsynth", ifund, 32, 1, 1, 1, i1, i2, i3, i4, i5, i6, i7, i8, \
      i9, i10, i11, i12, i13, i14, i15, i16
    givowel[ireg * 2 + ioo] = it
  endif
  xout givowel[ireg * 2 + ioo], ifund
endop

opcode wobble, k, ii            ; a slow unsteadiness: cents, how fast at most
  icents, irate xin
  kout rspline -icents, icents, irate * .4, irate
  xout kout
endop

opcode vibrato, k, iii          ; cents, Hz, seconds before it begins to grow
  icents, irate, ilate xin
  ilate *= random:i(.85, 1.25)
  kgrow linseg 0, ilate, 0, ilate + .6, 1, 1, 1
  kspeed rspline irate * .93, irate * 1.07, .3, .9
  kout lfo icents * kgrow, kspeed
  xout kout
endop

opcode sampled, aa, iiiiiiOo    ; note, velocity, program, attack, release, brightness in Hz, cents of bend, and for
  inote, ivel, iprogram, iattack, irelease, ibright, kbend, idies xin   ; what is struck: seconds to -60 dB at middle C
  icents random -2, 2
  aL, aR sfplay3 25 + ivel * 85, inote, (.1 + ivel * ivel) / 26000, cent(icents + kbend), iprogram
  aenv linsegr 0, iattack * random:i(.85, 1.2), 1, 1, 1, irelease, 0
  if idies > 0 then             ; the loop of a sample would sound for ever; high notes die sooner
    idies *= 2 ^ ((60 - inote) / 30)
    p3 = min(p3, idies)
    afall expon 1, idies, .001
    aenv *= afall
  endif
  kopen expseg 1.6, .5, 1, 6, .75
  kcut = limit(ibright * random:i(.88, 1.1) * (.35 + .8 * ivel) * kopen * (.6 + inote / 130), 150, 15000)
  aL butterlp aL * aenv, kcut
  aR butterlp aR * aenv, kcut
  xout aL, aR
endop

opcode glow, aa, iiii           ; note, level, rise, seconds to fall: the sine inside a struck note, a hair apart in two ears
  inote, ilevel, irise, ifall xin
  icps mtof inote
  aenv expsegr .001, irise, 1, ifall, .02, 1, .015, .35, .001
  aL poscil aenv * ilevel, icps * cent(random:i(-1.6, -.4)), gisine
  aR poscil aenv * ilevel, icps * cent(random:i(.4, 1.6)), gisine
  xout aL, aR
endop

opcode knock, a, iiii           ; level, Hz of the wood, seconds, Hz of the finger
  ilevel, ihz, itime, ibright xin
  awood expseg ilevel, itime, ilevel * .001, 1, ilevel * .0005
  awood poscil awood, ihz * random:i(.96, 1.04), gisine
  askin expseg ilevel * .01, .002, ilevel * .6, itime * .4, ilevel * .001, 1, ilevel * .0005
  askin noise askin, 0
  askin butterlp askin, ibright
  xout awood + askin
endop

opcode breath, a, iii           ; note, level, attack: air around a tone
  inote, ilevel, iattack xin
  aenv linsegr 0, iattack * .7, 1, .12, .45, .2, 0
  kpuff rspline .7, 1, .8, 2.5
  aair noise aenv * kpuff * ilevel, 0
  aair butterbp aair, limit(mtof:i(inote) * 2, 500, 3000), 900
  xout aair
endop

opcode weave, aa, iiiiiii       ; note, velocity, two timbres, attack, release, how far it wanders 0..1: a wide held tone
  inote, ivel, ione, itwo, iattack, irelease, iwander xin
  it1, if1 timbre ione, inote
  it2, if2 timbre itwo, inote
  icps mtof inote
  aenv linsegr 0, iattack * random:i(.85, 1.15), 1, 1, 1, irelease, 0
  k1 rspline 1 - iwander, 1, .06, .2
  k2 rspline 1 - iwander, 1, .06, .2
  kside rspline .14, .42, .05, .16
  iside = random:i(0, 1) < .5 ? -1 : 1
  a1 poscil aenv * interp(k1 * ivel * .29), icps / if1 * sr / ftlen(it1) * cent(random:i(-3, 3)), it1, random:i(0, 1)
  a2 poscil aenv * interp(k2 * ivel * .29), icps / if2 * sr / ftlen(it2) * cent(random:i(-3, 3)), it2, random:i(0, 1)
  knear = .6 + kside * iside
  kfar = .6 - kside * iside
  xout a1 * knear + a2 * kfar, a1 * kfar + a2 * knear
endop
