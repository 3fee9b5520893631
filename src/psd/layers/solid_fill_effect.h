// SPDX-License-Identifier: MIT
#pragma once

#include "psd/layers/effect_information.h"

namespace wallgrid {

/// One colour over the whole layer.
class KPPSDSolidFillEffectLayerInformation : public KPPSDEffectLayerInformation {};

} // namespace wallgrid
