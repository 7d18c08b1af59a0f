#include "fuzz/targets.h"

#include "fuzz/target_groups.h"

const std::vector<FuzzTarget>& fuzzTargets() {
    static const std::vector<FuzzTarget> all = [] {
        std::vector<FuzzTarget> list;
        addTextTargets(list);
        addFileTargets(list);
        addRecoveryTargets(list);
        addNeighbourTargets(list);
        return list;
    }();
    return all;
}
