// SPDX-License-Identifier: MIT
#pragma once

#include "base/error.h"
#include "base/progress.h"

#include <string>
#include <string_view>

namespace wallgrid {

/// Why a PSD could not be made. A caller gives an empty one and looks at it afterwards: it is empty when all went well.
struct KPPSDError {
    static constexpr std::string_view kDomain = "io.wallgrid.psd";

    enum Code {
        None = 0,
        ZeroDocumentSize = 1,
        NoVisibleLayers = 2,
        NoOpenedLayer = 3,
        NotPrepared = 4,
        TooLarge = 5,
        Cancelled = 6,  ///< by the report given to the writer
        NotWritten = 7, ///< the sink failed, and the message is its
        BrokenDocumentSize = 8,
    };

    Code code = None;
    std::string message;

    explicit operator bool() const { return code != None; }
    /// The same for who produces a file.
    Expected<void> result() const
    {
        if (code == Cancelled)
            return cancelled();
        return code == None ? Expected<void>() : failure(message);
    }
};

} // namespace wallgrid
