; weather.orc - textures that lie over a whole track: p4 is the table of levels by section.

gSweather = " rain drops wind surf sea thunder leaves stream crickets night fire air hiss room brown "

opcode tide, k, i               ; the level of a texture now
  ishape xin
  kbeat = timeinsts() * gibpm / 60
  ksec init 0
  while ksec < gisections - 1 && kbeat >= gisec[ksec + 1] do
    ksec += 1
  od
  kin = limit((kbeat - gisec[ksec]) / (gisec[ksec + 1] - gisec[ksec]), 0, 1)
  klevel tablei ksec + kin + .5, ishape
  xout klevel * klevel
endop

opcode drip, aa, iiiii          ; drops per second, lowest and highest pitch, ring, size
  irate, ilow, ihigh, iring, isize xin
  adrop dust2 isize, irate
  kfreq randomh ilow, ihigh, irate * 1.7
  kpos randomh .1, .9, irate * 1.7
  alow, aring, ahigh zdf_2pole_mode adrop * 2600 / kfreq, kfreq, iring
  xout aring * sqrt(1 - kpos), aring * sqrt(kpos)
endop

instr rain                      ; a bed, a patter, drops on the sill, and the roof
  klevel tide p4
  kgust rspline .45, 1.15, .05, .16
  kcut rspline 2200, 5200, .05, .15
  aL butterlp butterhp(pinker() * .5, 350), kcut
  aR butterlp butterhp(pinker() * .5, 350), kcut
  aroofL butterlp pinker(), 170
  aroofR butterlp pinker(), 170
  a1, a2 drip 300, 1800, 5200, 3, .13
  a3, a4 drip 40, 1200, 3600, 8, .2
  a5, a6 drip 3.5, 450, 1300, 16, .16
  aL = kgust * (aL * .5 + a1 + a3) + aroofL * .14 + a5
  aR = kgust * (aR * .5 + a2 + a4) + aroofR * .14 + a6
  aL butterlp butterhp(aL, 45), 6500
  aR butterlp butterhp(aR, 45), 6500
  send aL * klevel * 6, aR * klevel * 6, p6, p7
endin

opcode gust, a, kkk             ; a band of wind: pitch, width and force
  kpitch, kwidth, kforce xin
  aout butterbp pinker(), kpitch, kwidth
  xout aout * kforce
endop

instr wind                      ; one gust heard low, then in the middle, then at the gap of a window
  klevel tide p4
  kgust rspline 0, 1, .06, .2
  kover rspline 0, 1, .07, .25
  afarL gust 170 + 120 * kgust, 160, .35 + .65 * kover
  afarR gust 180 + 120 * kover, 160, .35 + .65 * kgust
  amidL gust 330 + 340 * kgust, 240, .08 + .95 * kgust * kgust
  amidR gust 350 + 340 * kover, 240, .08 + .95 * kover * kover
  agap gust 640 + 380 * kgust * kover, 45, kgust * kover
  aL = (afarL + amidL + agap * .9) * klevel * 2.4
  aR = (afarR + amidR + agap * .6) * klevel * 2.4
  send aL, aR, p6, p7
endin

instr surf
  klevel tide p4
  kL rspline 0, 1, .06, .11
  kR = kL * .75 + rspline(0, .25, .06, .11)
  aL butterlp pinker() * .6, 350 + 2800 * kL * kL
  aR butterlp pinker() * .6, 350 + 2800 * kR * kR
  send aL * klevel * 3.6 * (.35 + .65 * kL * kL), aR * klevel * 3.6 * (.35 + .65 * kR * kR), p6, p7
endin

instr sea                       ; the open water behind the beach: long swells, no foam
  klevel tide p4
  kswell rspline .1, 1, .07, .13
  kcross rspline .1, 1, .07, .13
  aL butterlp butterhp(pinker(), 50), 140 + 420 * kswell
  aR butterlp butterhp(pinker(), 50), 140 + 420 * kcross
  afarL butterbp pinker(), 900, 700
  afarR butterbp pinker(), 960, 700
  aL = aL * (.12 + kswell * kswell) + afarL * .1 * kswell * kcross
  aR = aR * (.12 + kcross * kcross) + afarR * .1 * kswell * kcross
  send aL * klevel * 2, aR * klevel * 2, p6, p7
endin

instr drops                     ; after the rain: a gutter that has not finished
  klevel tide p4
  a1, a2 drip 1.1, 700, 2100, 26, .12
  a3, a4 drip 3.2, 1300, 3400, 12, .06
  aL butterlp butterhp(a1 + a3, 200), 5200
  aR butterlp butterhp(a2 + a4, 200), 5200
  aL += butterlp(pinker(), 420) * .015
  aR += butterlp(pinker(), 420) * .015
  send aL * klevel * 16, aR * klevel * 16, p6, p7
endin

instr hiss                      ; the haze of a tape machine
  klevel tide p4
  aL butterbp noise:a(.19, 0), 3400, 4200
  aR butterbp noise:a(.19, 0), 3400, 4200
  a1, a2 drip 3.5, 1200, 3200, 3, .03
  kbreath rspline .7, 1.05, .08, .3
  send (aL * kbreath + a1) * klevel, (aR * kbreath + a2) * klevel, p6, p7
endin

instr room                      ; a quiet building
  klevel tide p4
  aL butterlp pinker(), 240
  aR butterlp pinker(), 240
  send aL * klevel, aR * klevel, p6, p7
endin

instr brown                     ; a deep even rumble, the sound of being indoors
  klevel tide p4
  kbreath rspline .85, 1.05, .05, .15
  aL tone noise:a(.5, 0), 70
  aR tone noise:a(.5, 0), 70
  aL butterlp butterhp(aL, 35), 900
  aR butterlp butterhp(aR, 35), 900
  send aL * klevel * kbreath * 10, aR * klevel * kbreath * 10, p6, p7
endin

instr thunder                   ; far behind the hills, more pressure than sound
  klevel tide p4
  kroll rspline 0, 1, .05, .14
  kgrain rspline .4, 1, 1.5, 5
  kcut = 70 + 190 * kroll
  aL butterlp pinker(), kcut
  aR butterlp pinker(), kcut
  aL butterhp aL, 38
  aR butterhp aR, 38
  kamp = klevel * (.16 + kroll * kroll * kgrain) * 6.5
  send aL * kamp, aR * kamp, p6, p7
endin

instr leaves                    ; a tree answering the wind a little late
  klevel tide p4
  kL rspline .1, 1, .08, .3
  kR rspline .1, 1, .08, .3
  aL butterbp noise:a(.3, 0), 2600 + 1400 * kL, 2800
  aR butterbp noise:a(.3, 0), 2600 + 1400 * kR, 2800
  a1, a2 drip 14, 2200, 5200, 4, .05
  send (aL * kL * kL + a1 * kL) * klevel * 1.8, (aR * kR * kR + a2 * kR) * klevel * 1.8, p6, p7
endin

instr stream                    ; water over stones, near enough to hear the stones
  klevel tide p4
  kflow rspline .7, 1.1, .1, .4
  aL butterbp pinker(), 620, 500
  aR butterbp pinker(), 690, 500
  a1, a2 drip 26, 420, 1500, 14, .12
  a3, a4 drip 60, 900, 2600, 9, .1
  aL = aL * .35 + a1 + a3
  aR = aR * .35 + a2 + a4
  aL butterlp butterhp(aL, 120), 4200
  aR butterlp butterhp(aR, 120), 4200
  send aL * klevel * kflow * 4.7, aR * klevel * kflow * 4.7, p6, p7
endin

opcode cricket, a, iii          ; pitch, chirps per second, pulses per second inside a chirp
  ipitch, irate, ipulse xin
  kchirp lfo 1, irate, 3
  kpulse lfo 1, ipulse
  kenv portk kchirp * max(kpulse, 0), .006
  klife rspline 0, 1, .05, .2
  aout poscil a(kenv) * klife * klife, ipitch * cent(random:i(-20, 20)), gisine
  xout aout
endop

instr crickets                  ; a warm night with the window open
  klevel tide p4
  a1 cricket 3920, 1.1, 31
  a2 cricket 4260, .83, 27
  a3 cricket 3640, .61, 34
  aL butterbp noise:a(.06, 0), 3200, 3000
  aR butterbp noise:a(.06, 0), 3200, 3000
  aL = aL + (a1 + a3 * .4) * .05
  aR = aR + (a2 + a3 * .6) * .05
  send aL * klevel * 1.6, aR * klevel * 1.6, p6, p7
endin

instr night                     ; dark air over fields, one insect far off
  klevel tide p4
  kL rspline .4, 1, .05, .14
  kR rspline .4, 1, .05, .14
  aL butterlp butterhp(pinker(), 60), 420
  aR butterlp butterhp(pinker(), 60), 420
  afar cricket 3310, .47, 23
  aL = aL * kL + afar * .012
  aR = aR * kR + afar * .03
  send aL * klevel * 1.4, aR * klevel * 1.4, p6, p7
endin

instr fire                      ; an open stove: the draught, the embers, now and then a log
  klevel tide p4
  kdraught rspline .5, 1, .2, .9
  alow butterlp butterhp(pinker(), 60), 260
  aside butterlp butterhp(pinker(), 60), 260
  ahissL butterbp noise:a(.014, 0), 3600, 3000
  ahissR butterbp noise:a(.014, 0), 3600, 3000
  a1, a2 drip 8, 1500, 4200, 5, .8
  a3, a4 drip 1.1, 600, 1700, 6, .7
  kbusy rspline .15, 1, .15, .5
  aL = alow * .8 * kdraught + ahissL * kdraught + (a1 * 1.6 + a3) * kbusy
  aR = aside * .8 * kdraught + ahissR * kdraught + (a2 * 1.6 + a4) * kbusy
  aL butterlp aL, 6000
  aR butterlp aR, 6000
  send aL * klevel * 1.6, aR * klevel * 1.6, p6, p7
endin

instr air                       ; the brightness of an open door
  klevel tide p4
  kL rspline .3, 1, .06, .18
  kR rspline .3, 1, .06, .18
  aL butterlp butterhp(noise:a(.14, 0), 1500), 3000 + 4000 * kL
  aR butterlp butterhp(noise:a(.14, 0), 1500), 3000 + 4000 * kR
  send aL * kL * klevel * 2, aR * kR * klevel * 2, p6, p7
endin
