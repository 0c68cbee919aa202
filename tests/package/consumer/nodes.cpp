// Uses the platform library alone.

#include "platform/zqshared.h"

int main() {
    const char text[] = "<Track><TrackId>Tra.1</TrackId></Track>";
    const auto tree = ZQXML::ParseXml(text);
    return tree && ZQXML::WriteXml(tree.get()) == text ? 0 : 1;
}
