# Meters, dials, sliders, and what they tell assistive technology.
target_sources(quillon_controls PRIVATE
    Accessibility.cpp Accessibility.h
    DialS1M1.cpp DialS1M1.h
    DialS1M2.cpp DialS1M2.h
    DialS1M3.cpp DialS1M3.h
    DialS1M4.cpp DialS1M4.h
    DialS1M5.cpp DialS1M5.h
    DialS1M6.cpp DialS1M6.h
    FocusMark.cpp FocusMark.h
    HSliderS1M1.cpp HSliderS1M1.h
    HSliderS2M1.cpp HSliderS2M1.h
    ValueControl.h
    ValueEditor.cpp ValueEditor.h
    VSliderS1M1.cpp VSliderS1M1.h
    VSliderS1M2.cpp VSliderS1M2.h
    VolumeMeterS1M1.h
    VolumeMeterS1M2.cpp VolumeMeterS1M2.h
    VolumeMeterS1M3.cpp VolumeMeterS1M3.h
    VolumeMeterS1M4.h
    VolumeMeterS1M5.h
    VolumeMeterS1M6.h
    VolumeMeterS1M7.h
    VolumeMeterS1M8.h
    VolumeMeterS2M1.cpp VolumeMeterS2M1.h
    WheelGuard.cpp WheelGuard.h
    WheelSteps.h
    dial/DialCore.cpp dial/DialCore.h
    dial/DialFace.h
    dial/DialLaw.cpp dial/DialLaw.h
    dial/DialPaint.cpp dial/DialPaint.h
    dial/Ladder.cpp dial/Ladder.h
    meter/MeterChannel.cpp meter/MeterChannel.h
    meter/MeterFaces.cpp meter/MeterFaces.h
    meter/MeterPaint.cpp meter/MeterPaint.h
    meter/MeterPass.cpp meter/MeterPass.h
    meter/MeterShape.cpp meter/MeterShape.h
    meter/MeterSkin.cpp meter/MeterSkin.h
    meter/MeterView.cpp meter/MeterView.h
    slider/Balance.cpp slider/Balance.h
    slider/Fader.cpp slider/Fader.h
    slider/FaderCore.cpp slider/FaderCore.h
    slider/FaderFace.h
    slider/FaderLaw.cpp slider/FaderLaw.h)
