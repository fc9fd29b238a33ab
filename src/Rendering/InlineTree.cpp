// SPDX-License-Identifier: MIT
#include "InlineTree.h"

#include "InlineLine.h"
#include "ParserMemory.h"

#include <cmark-gfm-core-extensions.h>
#include <cmark-gfm-extension_api.h>
#include <cmark-gfm.h>

#include <vector>

namespace sablequill::InlineMarkdown {
namespace {

cmark_syntax_extension* strikethroughExtension()
{
    static cmark_syntax_extension* const extension = [] {
        cmark_gfm_core_extensions_ensure_registered();
        return cmark_find_syntax_extension("strikethrough");
    }();
    return extension;
}

/// The tree, which lives in the memory.
cmark_node* parse(const std::string& line, const ParserMemory& memory)
{
    cmark_parser* const parser = cmark_parser_new_with_mem(CMARK_OPT_DEFAULT, memory.functions());
    cmark_parser_attach_syntax_extension(parser, strikethroughExtension());
    cmark_parser_feed(parser, line.data(), line.size());
    return cmark_parser_finish(parser);
}

/// Without one space at each end when both are spaces and something else is between them.
std::string_view strippedCode(std::string_view code)
{
    const bool isStripped = code.starts_with(' ') && code.ends_with(' ')
        && code.find_first_not_of(' ') != std::string_view::npos;
    return isStripped ? code.substr(1, code.size() - 2) : code;
}

/// Turns the nodes of one line into runs.
class TreeWalker {
public:
    TreeWalker(const InlineLine& line, Utf8Runs& out)
        : line(line)
        , out(out)
    {
    }

    void walk(cmark_node* document)
    {
        cmark_iter* const iterator = cmark_iter_new(document);
        for (auto event = cmark_iter_next(iterator); event != CMARK_EVENT_DONE;
             event = cmark_iter_next(iterator)) {
            cmark_node* const node = cmark_iter_get_node(iterator);
            if (event == CMARK_EVENT_EXIT)
                leave(node);
            else
                enter(node);
        }
        finish();
    }

private:
    void enter(cmark_node* node)
    {
        switch (cmark_node_get_type(node)) {
        case CMARK_NODE_TEXT:
            appendText(cmark_node_get_literal(node));
            break;
        case CMARK_NODE_CODE:
            appendCode(node);
            break;
        case CMARK_NODE_HTML_INLINE:
            use(InlinePresentationIntent::inlineHTML);
            line.appendVerbatim(cmark_node_get_literal(node), out.text);
            break;
        case CMARK_NODE_LINK:
            links.push_back(destination(node));
            break;
        default:
            countSpan(node, 1);
        }
    }

    void leave(cmark_node* node)
    {
        if (cmark_node_get_type(node) == CMARK_NODE_LINK)
            links.pop_back();
        else
            countSpan(node, -1);
    }

    void countSpan(cmark_node* node, int change)
    {
        if (cmark_node_get_type(node) == CMARK_NODE_STRONG)
            strongDepth += change;
        else if (cmark_node_get_type(node) == CMARK_NODE_EMPH)
            emphasisDepth += change;
        else if (cmark_node_get_syntax_extension(node) == strikethroughExtension())
            strikethroughDepth += change;
    }

    QString destination(cmark_node* link) const
    {
        std::string typed;
        line.appendVerbatim(cmark_node_get_url(link), typed);
        return QString::fromStdString(typed);
    }

    void appendText(std::string_view literal)
    {
        if (!isBehindGuard) {
            literal.remove_prefix(InlineLine::guardSize());
            isBehindGuard = true;
        }
        use(0);
        line.appendText(literal, out.text);
    }

    /// From the line itself: the node's own literal has lost the spaces at its ends.
    void appendCode(cmark_node* node)
    {
        const auto first = static_cast<std::size_t>(cmark_node_get_start_column(node)) - 1;
        const auto end = static_cast<std::size_t>(cmark_node_get_end_column(node));
        const auto code = std::string_view(line.bytes()).substr(first, end - first);
        use(InlinePresentationIntent::code);
        line.appendVerbatim(strippedCode(code), out.text);
    }

    /// The attributes of what is written next.
    void use(std::uint32_t ownIntent)
    {
        const std::uint32_t intent = ownIntent
            | (strongDepth > 0 ? InlinePresentationIntent::stronglyEmphasized : 0)
            | (emphasisDepth > 0 ? InlinePresentationIntent::emphasized : 0)
            | (strikethroughDepth > 0 ? InlinePresentationIntent::strikethrough : 0);
        const QString& link = links.back();
        if (intent == attributes.inlinePresentationIntent && link == attributes.link)
            return;
        out.endRun(attributes);
        attributes.inlinePresentationIntent = intent;
        attributes.link = link;
    }

    /// The guard at the end is the end of the last text: nothing in the line can take it in.
    void finish()
    {
        out.text.resize(out.text.size() - InlineLine::guardSize());
        out.endRun(attributes);
    }

    const InlineLine& line;
    Utf8Runs& out;
    int strongDepth = 0;
    int emphasisDepth = 0;
    int strikethroughDepth = 0;
    /// Destinations of those around the current node, behind an empty one.
    std::vector<QString> links{QString()};
    bool isBehindGuard = false;
    RunAttributes attributes;
};

} // namespace

void appendRuns(std::string_view text, Utf8Runs& out)
{
    const InlineLine line(text);
    const ParserMemory memory;
    TreeWalker(line, out).walk(parse(line.bytes(), memory));
}

} // namespace sablequill::InlineMarkdown
