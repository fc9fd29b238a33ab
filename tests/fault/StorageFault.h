// SPDX-License-Identifier: MIT
#pragma once

#include "FakeLoginItem.h"
#include "NotesManager.h"
#include "StorageManager.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace sablequill {

/// The program's storage and the notes in it, while system calls fail.
class StorageFault : public testing::Test {
protected:
    void start()
    {
        manager.reset();
        storage.reset();
        storage = std::make_shared<StorageManager>(loginItem);
        manager = std::make_unique<NotesManager>(storage);
    }

    void startWithBothFiles()
    {
        start();
        type(QStringLiteral("old"));
        setOpacity(0.25);
        ASSERT_EQ(storedNote(), QStringLiteral("old"));
    }

    /// As the editor does after each key.
    void type(const QString& text)
    {
        manager->updateContent(manager->notes->front().id, text);
        EXPECT_EQ(manager->notes->front().content, text) << "memory lost it";
    }

    void setOpacity(double opacity)
    {
        auto settings = storage->settings;
        settings.opacity = opacity;
        storage->saveSettings(settings);
        EXPECT_EQ(storage->settings.opacity, opacity) << "memory lost it";
    }

    /// What the file holds; fails the test unless the whole of it can be read.
    QString storedNote() const
    {
        const auto notes = decodeNotes(bytesOf(home.notes()));
        EXPECT_TRUE(notes) << bytesOf(home.notes()).toStdString();
        return notes ? notes->at(0).content.text() : QString();
    }
    double storedOpacity() const
    {
        const auto settings = decodeSettings(bytesOf(home.settings()));
        EXPECT_TRUE(settings) << bytesOf(home.settings()).toStdString();
        return settings ? settings->opacity : -1;
    }

    /// How many of the user's files hold these bytes.
    std::ptrdiff_t filesWith(const QByteArray& bytes) const
    {
        const auto names = namesIn(home.folder());
        return std::count_if(names.begin(), names.end(),
            [&](const std::string& name) { return bytesOf(home.folder() / name) == bytes; });
    }

    TemporaryHome home;
    Journal journal;
    FakeLoginItem loginItem{journal};
    std::shared_ptr<StorageManager> storage;
    std::unique_ptr<NotesManager> manager;
};

} // namespace sablequill
