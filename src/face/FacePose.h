#pragma once

namespace vaxo {

// How the drawn face looks at one moment: everything the painter needs besides her colour and size.
// Lengths are in units of a 100 by 100 box that holds her.
struct FacePose {
    enum class Eyes { Open, Closed, Happy }; // open ovals; shut arcs of sleep; the upturned arcs of joy
    enum class Mouth { Smile, Flat, Round, Grin, Wavy };

    Eyes eyes = Eyes::Open;
    double openness = 1; // eye height factor, the blink included; 0 is shut
    double eyeScale = 1; // bigger when she looks at you
    double lid = 0;      // 0..1: how far the upper lids come down while she concentrates
    double gazeX = 0;    // -1 (left) .. 1 (right)
    double gazeY = 0;    // -1 (up) .. 1 (down)
    Mouth mouth = Mouth::Smile;
    double brows = 0;   // 1 raised, -1 worried, 0 none
    double squash = 0;  // > 0 flatter and wider, < 0 taller and narrower
    double lift = 0;    // how high she hops
    double shake = 0;   // sideways offset of a shiver
    double tilt = 0;    // degrees, clockwise
    double glow = 0;    // 0..1: the antenna's bulb lights up on a beat
    bool sweat = false; // a drop beside her forehead
    bool blush = false; // rosier cheeks

    bool operator==(const FacePose &) const = default;
};

} // namespace vaxo
