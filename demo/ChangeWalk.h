#pragma once

#include <vector>

namespace pedl::demo {

/// What is heard when somebody goes from one program to another while a pad sounds.
struct Change {
    int from;
    int to;
    double burstDb; ///< peak of the following 0.3 s above the louder of both programs' own peaks
    double clickDb; ///< the same of what lies far up, in the first 30 ms
};

/// One walk through all changes from each program to each other. Slots from 0, below `programs`.
std::vector<Change> walkThroughAllChanges(int programs);

} // namespace pedl::demo
