#pragma once

namespace vaxo {

// Something that feeds the island with what it shows while the island is on screen: the session
// watching, the media reader, the clipboard history. The island starts its feeders in order when it
// first shows and stops them when it hides.
class Feeder {
public:
    virtual ~Feeder() = default;
    virtual void start() = 0;
    // Stops feeding and forgets what only matters while shown; start() may begin again.
    virtual void stop() = 0;
};

} // namespace vaxo
