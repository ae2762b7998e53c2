#pragma once
// The value laws of the device: how a dB, a name or a band of the console becomes a number of a frame, and back.
// Free of state, any thread.

#include <QStringView>

/// Index 0..99 of the +9 dB scale (AUX, headphones): 0.5 dB steps from -10 dB up, 1 dB down to -52, 2 dB down to -88, else 0.
int gainToDeviceAux(float db);
/// Index 0..99 of the 0 dB scale (BT, OTG): 0.5 dB steps from -10 dB up, 1 dB down to -88, else 0.
int gainToDeviceLine(float db);
/// dB of an index of the +9 dB scale; -90 below index 1.
float deviceToGainAux(int index);
/// dB of an index of the 0 dB scale; -89 below index 1.
float deviceToGainLine(int index);

/// Crosspoint source 1..20 of a mixer object with its channel letter ("Mixer_AUXR"), 0 for any other text.
int mixerSourceIndex(QStringView name);
/// The same of an object and a channel, without joining the letter to the name.
int mixerSourceIndex(QStringView object, bool right);
/// Audio source 1..17 of its display name ("Mix A"), -1 for any other text.
int sourceIndex(QStringView name);
/// Parameter 1..10 of an equalizer band ("LGain"), 0 for any other text.
int eqParameterIndex(QStringView name);
/// The same of an attribute ("Gain") and a side.
int eqParameterIndex(QStringView attribute, bool right);
/// Band "1".."10" in bits 11..8, 0 for any other text.
int eqBandBits(QStringView band);

/// Linear gain with 25 fraction bits, trunc(10^(db/20) * 2^25); 0 at or below the floor.
long long dbToLinear(double db, double floorDb);
/// dB of such a gain, -90 for 0 and below.
double linearToDb(long long linear);
