// How a request to a reader or a writer ended.
#pragma once

namespace veltrane {

enum class ExchangeStatus {
    Void,   ///< there was nothing to do: no norm selected, a null shape
    Done,   ///< done; single records may still carry fails and warnings
    Error,  ///< the file could not be opened, read or written
    Fail,   ///< there is no result; the checks tell why
    Stop,   ///< the user asked to stop
};

}  // namespace veltrane
