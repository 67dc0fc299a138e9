; encoded.orc - what the encoder has made of a track. Csound's strings are 1: the decoded file, 2: what was encoded, which
; the factor GAIN has brought to its loudness.

sr = 44100
ksmps = 441
nchnls = 2
0dbfs = 1

opcode bend, k, a               ; the largest third difference within 10 ms: a click bends a wave more than any tone
  ain xin
  a1 delay1 ain
  a2 delay1 a1
  a3 delay1 a2
  kbend max_k ain - 3 * a1 + 3 * a2 - a3, 1, 1
  xout kbend
endop

instr compare                   ; a click is an error that bends far more than the music does within 20 ms of it
  asL, asR diskin2 strget(1), 1
  arawL, arawR diskin2 strget(2), 1
  kerror max bend(asL - arawL * $GAIN), bend(asR - arawR * $GAIN)
  kraw max bend(arawL * $GAIN), bend(arawR * $GAIN)
  kheld delayk kerror, .02
  k1 delayk kraw, .01
  k2 delayk kraw, .02
  k3 delayk kraw, .03
  k4 delayk kraw, .04
  if kheld > .03 && kheld > 2 * max(kraw, k1, k2, k3, k4) then
    printf "click\t%.2f\n", timeinstk(), timeinsts() - .02
  endif
endin

instr finish
  event_i "e", 0, 0
endin

ilength = filelen(strget(2))
schedule "compare", 0, ilength + .02
schedule "finish", ilength + .02, .01
