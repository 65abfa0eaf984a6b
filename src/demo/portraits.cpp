#include "demo/portraits.h"

#include <algorithm>

#include "demo/league.h"

namespace kestrin::demo {

namespace {

int shadeOf(int32_t code) { return portraitPart(PortraitIndex(code)).Shade; }
int styleOf(int32_t code) { return portraitPart(PortraitIndex(code)).Style; }

std::vector<int32_t> only(std::vector<int32_t> codes, auto keep) {
    std::erase_if(codes, [&](int32_t c) { return !keep(c); });
    return codes;
}

}  // namespace

// The layers: 0 hair in front, 1 complexion, 2 hair behind, 3 eyes, 4 nose,
// 5 a mouth (the signing figure's mood is drawn in its place), 6 a beard,
// glasses or a headband, 7 the head.
PortraitCodes demoPortrait(uint64_t seed) {
    Random r(seed);
    auto pick = [&](const std::vector<int32_t>& codes) { return codes.empty() ? 0 : r.pick(codes); };
    PortraitCodes c{};

    c[7] = pick(portraitCodesOf(FaceFeature::Head));
    std::vector<int32_t> fronts = portraitCodesOf(FaceFeature::HairFront);
    // Dark skin mostly goes with black hair.
    if (shadeOf(c[7]) >= 5 && r.chance(85))
        fronts = only(fronts, [](int32_t f) { return shadeOf(f) == int(HairShade::Black); });
    c[0] = pick(fronts);

    // Hair behind goes with the hair in front: the same style number when
    // there is one, else short sides of its shade, and a ring for a bald man.
    const std::vector<int32_t> backs = portraitCodesOf(FaceFeature::HairBack);
    const int32_t sameStyle = c[0] + 88000;
    if (std::ranges::find(backs, sameStyle) != backs.end())
        c[2] = sameStyle;
    else if (const auto sides = only(backs, [&](int32_t b) { return styleOf(b) == 0 && shadeOf(b) == shadeOf(c[0]); });
             !sides.empty())
        c[2] = pick(sides);
    else
        c[2] = pick(only(backs, [](int32_t b) { return styleOf(b) == 6; }));
    const int shade = shadeOf(c[2]);

    const auto eyes = portraitCodesOf(FaceFeature::Eyes);
    const auto matching = only(eyes, [&](int32_t e) { return shadeOf(e) == shade; });
    c[3] = pick(matching.empty() ? eyes : matching);
    c[4] = pick(portraitCodesOf(FaceFeature::Nose));
    c[5] = pick(portraitCodesOf(FaceFeature::Mouth));

    const auto complexions = portraitCodesOf(FaceFeature::Complexion);
    c[1] = r.chance(55) ? complexions.front() : pick(complexions);

    const auto beards = portraitCodesOf(FaceFeature::Beard);
    const int roll = r.range(1, 100);
    const auto beard = only(beards, [&](int32_t b) { return styleOf(b) != 0 && shadeOf(b) == shade; });
    if (roll <= 75 && roll > 45 && !beard.empty())
        c[6] = pick(beard);
    else if (roll > 88)
        c[6] = pick(portraitCodesOf(FaceFeature::Headband));
    else if (roll > 75)
        c[6] = pick(portraitCodesOf(FaceFeature::Glasses));
    else
        c[6] = beards.front();  // clean-shaven
    return c;
}

}  // namespace kestrin::demo
