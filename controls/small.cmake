# Add box and status circle; drawings as pixmaps.
target_sources(quillon_controls PRIVATE
    ButtonBoxS1M1.cpp ButtonBoxS1M1.h
    CircleS1M1.cpp CircleS1M1.h
    SvgPixmap.cpp SvgPixmap.h)
