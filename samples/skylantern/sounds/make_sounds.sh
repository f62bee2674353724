#!/bin/sh
# Makes the interface sounds with sox: soft bells and paper in the wind.
set -eu
cd "$(dirname "$0")"
form="-r 44100 -b 16 -c 2"
sox -n $form hover.wav synth 0.16 pluck C6 synth 0.16 sine mix 2093 fade t 0.002 0.16 0.14 gain -n -16
sox -n $form click.wav synth 0.34 pluck G4 synth 0.34 pluck mix D5 synth 0.34 sine mix 1174.7 fade t 0.001 0.34 0.30 reverb 22 gain -n -7
sox -n $form page_in.wav synth 0.9 pinknoise band -n 900 700 synth 0.9 sine mix 392:784 fade h 0.35 0.9 0.5 reverb 40 gain -n -13
sox -n $form page_out.wav synth 0.6 pinknoise band -n 700 600 synth 0.6 sine mix 784:330 fade h 0.05 0.6 0.5 reverb 40 gain -n -14
