#pragma once

#include "platform/GlobalHotKey.h"

#include <QList>

namespace vaxo::test {

// Grants or refuses grabs as the test says, and remembers them.
struct FakeGlobalHotKey final : GlobalHotKey {
    Grab answer; // what the next grabs come to
    QList<QPair<Qt::Key, Qt::KeyboardModifiers>> grabs;

    Grab grab(Qt::Key key, Qt::KeyboardModifiers modifiers) override
    {
        grabs.append({key, modifiers});
        return answer;
    }
    void release() override {}
};

} // namespace vaxo::test
