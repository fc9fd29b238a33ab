// SPDX-License-Identifier: MIT
#include "NoteTextView.h"

#include "MarkdownParser.h"
#include "Widgets.h"

#include <QTest>
#include <QTextBlock>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;

/// Counts what the toolkit asks for while it shows a note.
class CountingView : public NoteTextView {
public:
    int requests = 0;

    QVariant loadResource(int type, const QUrl& name) override
    {
        ++requests;
        return NoteTextView::loadResource(type, name);
    }
};

const QString hostileNotes[] = {
    u"![x](http://127.0.0.1:9/x.png)"_s,
    u"![x](file:///etc/passwd) and ![y](data:image/png;base64,AAAA)"_s,
    u"![x][r]\n\n[r]: http://127.0.0.1:9/x.png"_s,
    u"<img src=\"http://127.0.0.1:9/x.png\"> <img src=x onerror=run()>"_s,
    u"<link rel=\"stylesheet\" href=\"http://127.0.0.1:9/x.css\">"_s,
    u"<style>@import url(http://127.0.0.1:9/x.css);</style>"_s,
    u"<iframe src=\"http://127.0.0.1:9/\"></iframe><script>run()</script>"_s,
    u"<a href=\"file:///bin/sh\">a</a> [b](file:///bin/sh) <file:///bin/sh>"_s,
    u"[![x](http://127.0.0.1:9/x.png)](javascript:run())"_s,
    u"# ![x](http://127.0.0.1:9/x.png)\n- ![x](http://127.0.0.1:9/x.png)"_s,
};

/// Objects in the text: pictures and whatever else is not letters.
int objectsIn(const QTextDocument& document)
{
    int objects = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QTextCharFormat format = piece.fragment().charFormat();
            objects += format.isImageFormat() || format.objectType() != QTextFormat::NoObject;
        }
    }
    return objects;
}

TEST(HostileNoteTest, show_picturesScriptsAndFrames_asksForNothingAndOpensNothing)
{
    CountingView view;
    QStringList opened;
    view.openLink = [&](const QUrl& link) { opened << link.toString(); };
    view.resize(300, 200);
    present(view);
    for (const QString& note : hostileNotes) {
        SCOPED_TRACE(note.toStdString());
        view.showNote(MarkdownParser::attributedString(note, 16), 16, false);
        present(view);
        picture(view);
        EXPECT_EQ(objectsIn(*view.document()), 0);
    }
    EXPECT_EQ(view.requests, 0);
    EXPECT_TRUE(opened.isEmpty());
}

TEST(HostileNoteTest, follow_everyLinkByKey_onlyPagesAndMailAreOpened)
{
    CountingView view;
    QStringList opened;
    view.openLink = [&](const QUrl& link) { opened << link.toString(); };
    view.resize(300, 200);
    present(view);
    view.showNote(MarkdownParser::attributedString(u"[a](file:///bin/sh) [b](javascript:run()) "
                                                   "[c](https://example.org) [d](x-run:me) "
                                                   "[e](mailto:me@example.org) [f](//host/share) "
                                                   "[g](http://example.org)"_s,
                      16),
        16, false);
    view.setFocus();
    for (int link = 0; link < 7; ++link) {
        QTest::keyClick(&view, Qt::Key_Tab);
        QTest::keyClick(&view, Qt::Key_Return);
    }
    EXPECT_EQ(opened,
        (QStringList{
            u"https://example.org"_s, u"mailto:me@example.org"_s, u"http://example.org"_s}));
    EXPECT_EQ(view.requests, 0);
}

} // namespace
} // namespace sablequill
