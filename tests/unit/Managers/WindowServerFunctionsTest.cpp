// SPDX-License-Identifier: MIT
#include "WindowServerFunctions.h"

#include <QFile>
#include <QTemporaryDir>

#include <dlfcn.h>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

const std::string absentLibrary = "/nonexistent/SablequillTest/Library";

bool isOpen(const std::string& path)
{
    // Asks without opening; a handle that comes back counts as one more opening.
    void* handle = dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (handle)
        dlclose(handle);
    return handle;
}

class WindowServerFunctionsTest : public testing::Test {
protected:
    /// A copy that no other test has opened.
    std::string copyOf(const char* library)
    {
        const QString copy = folder.filePath(QStringLiteral("library%1.so").arg(copies++));
        EXPECT_TRUE(QFile::copy(QString::fromUtf8(library), copy));
        return copy.toStdString();
    }

    QTemporaryDir folder;
    int copies = 0;
};

TEST_F(WindowServerFunctionsTest, construct_anyPaths_opensNothing)
{
    const std::string path = copyOf(COMPLETE_LIBRARY);
    const WindowServerFunctions functions({path});

    EXPECT_FALSE(isOpen(path));
    EXPECT_FALSE(
        functions.fnMain || functions.fnCreate || functions.fnRelease || functions.fnExclude);
}

TEST_F(WindowServerFunctionsTest, isSupported_completeLibrary_allFourFunctionsWork)
{
    WindowServerFunctions functions({copyOf(COMPLETE_LIBRARY)});

    EXPECT_TRUE(functions.isSupported());
    EXPECT_EQ(functions.fnMain(), 3U);
    EXPECT_EQ(functions.fnExclude(1, 2, nullptr), 3);
    auto* region = static_cast<double*>(functions.fnCreate({1, 2, 640, 480}));
    EXPECT_EQ(region[0], 3);
    EXPECT_EQ(region[1], 640);
    functions.fnRelease(region);
    EXPECT_EQ(region[0], -3);
}

TEST_F(WindowServerFunctionsTest, isSupported_onlySecondLibraryHasConnection_restStaysWithFirst)
{
    WindowServerFunctions functions({copyOf(LIBRARY_WITHOUT_CONNECTION), copyOf(COMPLETE_LIBRARY)});

    EXPECT_TRUE(functions.isSupported());
    EXPECT_EQ(functions.fnMain(), 3U);
    EXPECT_EQ(functions.fnExclude(1, 2, nullptr), 1);
    EXPECT_EQ(static_cast<double*>(functions.fnCreate({}))[0], 1);
}

TEST_F(WindowServerFunctionsTest, isSupported_firstLibraryAbsent_secondIsSearched)
{
    WindowServerFunctions functions({absentLibrary, copyOf(COMPLETE_LIBRARY)});

    EXPECT_TRUE(functions.isSupported());
    EXPECT_EQ(functions.fnMain(), 3U);
}

struct SupportRow {
    const char* name;
    std::vector<const char*> libraries;
    bool isSupported;

    friend void PrintTo(const SupportRow& row, std::ostream* stream) { *stream << row.name; }
};

class WindowServerSupportTest : public WindowServerFunctionsTest,
                                public testing::WithParamInterface<SupportRow> { };

TEST_P(WindowServerSupportTest, isSupported_libraries_connectionAndExclusionDecide)
{
    std::vector<std::string> paths;
    for (const char* library : GetParam().libraries)
        paths.push_back(copyOf(library));
    WindowServerFunctions functions(paths);

    EXPECT_EQ(functions.isSupported(), GetParam().isSupported);
}

INSTANTIATE_TEST_SUITE_P(Libraries, WindowServerSupportTest,
    testing::Values(SupportRow{"none", {}, false}, SupportRow{"complete", {COMPLETE_LIBRARY}, true},
        SupportRow{"withoutConnection", {LIBRARY_WITHOUT_CONNECTION}, false},
        SupportRow{"withoutExclusion", {LIBRARY_WITHOUT_EXCLUSION}, false},
        SupportRow{"withoutRegion", {LIBRARY_WITHOUT_REGION}, true},
        SupportRow{"eachHalf", {LIBRARY_WITHOUT_EXCLUSION, LIBRARY_WITHOUT_CONNECTION}, true}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(WindowServerFunctionsTest, isSupported_twice_opensTheLibrariesOnceAndKeepsThemOpen)
{
    const std::string path = copyOf(COMPLETE_LIBRARY);
    {
        WindowServerFunctions functions({path});
        EXPECT_TRUE(functions.isSupported());
        EXPECT_TRUE(functions.isSupported());
    }
    EXPECT_TRUE(isOpen(path));

    // The loader counts openings: when there was one, this and one more closing unload the library.
    void* handle = dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    ASSERT_TRUE(handle);
    dlclose(handle);
    dlclose(handle);
    EXPECT_FALSE(isOpen(path));
}

TEST_F(WindowServerFunctionsTest, isSupported_libraryAppearsAfterFailure_isNotTriedAgain)
{
    const QString late = folder.filePath(QStringLiteral("late.so"));
    WindowServerFunctions functions({late.toStdString()});
    EXPECT_FALSE(functions.isSupported());

    ASSERT_TRUE(QFile::copy(QStringLiteral(COMPLETE_LIBRARY), late));

    EXPECT_FALSE(functions.isSupported());
    EXPECT_FALSE(isOpen(late.toStdString()));
    EXPECT_TRUE(WindowServerFunctions({late.toStdString()}).isSupported());
}

} // namespace
} // namespace sablequill
