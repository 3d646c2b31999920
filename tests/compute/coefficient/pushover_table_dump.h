#pragma once
// A pushover table as one line, for the readers' tables of cases: the error that stopped the
// read, each row's three texts in brackets with its step, displacement and force, the points
// array's upper bound, and every point of the array that is not its row's.
#include <string>

#include "compute/coefficient/pushover_table.h"
#include "support/tables.h"

namespace tv::compute::test_dump {

inline std::string point_text(const PushoverPoint& p) {
    return std::to_string(p.Step) + " " + test::shortest(p.Displacement) + " " + test::shortest(p.BaseForce);
}

inline std::string dumped(const PushoverTable& t) {
    std::string out = t.ok() ? "" : "error " + std::to_string(t.error) + " " + t.description + " | ";
    for (const PushoverRow& r : t.rows)
        out += "[" + r.step_text + "][" + r.displacement_text + "][" + r.force_text + "] " + point_text(r.point) + "; ";
    out += "ubound " + std::to_string(t.points.ubound());
    for (long i = 0; i <= t.points.ubound(); ++i) {
        const PushoverPoint& p = t.points(i);
        if (static_cast<std::size_t>(i) < t.rows.size() && point_text(t.rows[i].point) == point_text(p)) continue;
        out += " | point " + std::to_string(i) + ": " + point_text(p);
    }
    return out;
}

}  // namespace tv::compute::test_dump
