// The draws as the statistics see them: one record at a time, whatever holds them.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/data.h"

namespace statistics {

/// Day of a draw; times are midnight.
using platform::Data;

/// Walks the draws. A step returns false when it fails: any on no records at all, and a step on
/// past the end. A field that is empty, absent or not on a record reads as nothing.
class LettoreEstrazioni {
public:
    LettoreEstrazioni() = default;
    LettoreEstrazioni(const LettoreEstrazioni&) = delete;
    LettoreEstrazioni& operator=(const LettoreEstrazioni&) = delete;
    virtual ~LettoreEstrazioni() = default;

    virtual bool MoveFirst() = 0;
    virtual bool MoveLast() = 0;
    virtual bool MoveNext() = 0;
    /// `n` records on, back when negative; before the first record it stops there and succeeds,
    /// and the next step on lands on the first.
    virtual bool Move(std::int32_t n) = 0;
    /// True after the last record, and when there is none.
    virtual bool alla_fine() = 0;
    /// Trusted after a `MoveLast`.
    virtual std::int32_t RecordCount() = 0;

    /// The field named "1°estratto" to "6°estratto".
    virtual std::optional<std::int32_t> estratto(int quale) = 0;
    virtual std::optional<std::int32_t> Jolly() = 0;
    virtual std::optional<std::int32_t> superstar() = 0;
    /// Places 1 to 5: the fields at ordinals 2 to 6.
    virtual std::optional<std::int32_t> campi_estratti(int quale) = 0;
    /// The field at ordinal 0.
    virtual std::optional<Data> data() = 0;
};

}  // namespace statistics
