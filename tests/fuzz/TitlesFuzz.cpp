// SPDX-License-Identifier: MIT
#include "Fuzz.h"

#include "LoginItem.h"
#include "NotesManager.h"
#include "StorageManager.h"

#include <memory>

using namespace sablequill;

namespace {

class NoLoginItem final : public LoginItem {
public:
    bool registerItem() override { return true; }
    bool unregisterItem() override { return true; }
};

NotesManager& manager()
{
    // The notes are saved each time: in memory.
    setenv("XDG_DATA_HOME", "/dev/shm/sablequill-fuzz", 1);
    static NoLoginItem loginItem;
    static NotesManager manager(std::make_shared<StorageManager>(loginItem));
    return manager;
}

} // namespace

// What lists show of a note is one line and never nothing.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString content = QString::fromUtf8(bytes(data, size));
    manager().updateContent(manager().notes->front().id, content);
    const MirkpadItem& note = manager().notes->front();
    require(!note.title.isEmpty() && !note.title.contains(u'\n'));
    require(!note.preview().isEmpty() && !note.preview().contains(u'\n'));
    return 0;
}
