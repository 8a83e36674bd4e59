#pragma once

#include "tests/model/World.h"

namespace mrlxmlclass::model {

/// Whether the host is told of every date that an edit changes. Made before the edit.
class ToldDates {
public:
    explicit ToldDates(World& world);

    /// Complains of a task whose start or end is another than before and than the host was told last. Some operations
    /// leave the telling to their caller, and nobody tells what a failure broke off.
    void Check(std::string_view operation, bool failed) const;

private:
    World& world_;
    std::map<std::int64_t, std::pair<Date, Date>> before_;
};

}  // namespace mrlxmlclass::model
