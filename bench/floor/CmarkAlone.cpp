// SPDX-License-Identifier: MIT
//
// cmark_alone FILE: the microseconds that cmark-gfm takes to parse the file, with the strikethrough
// extension and nothing else; the least of some runs.
#include "Timing.h"

#include <cmark-gfm-core-extensions.h>
#include <cmark-gfm.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>

namespace {

void parse(const std::string& text, cmark_syntax_extension* strikethrough)
{
    const std::unique_ptr<cmark_parser, decltype(&cmark_parser_free)> parser(
        cmark_parser_new(CMARK_OPT_DEFAULT), cmark_parser_free);
    cmark_parser_attach_syntax_extension(parser.get(), strikethrough);
    cmark_parser_feed(parser.get(), text.data(), text.size());
    cmark_node_free(cmark_parser_finish(parser.get()));
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2)
        return 1;
    std::ifstream file(argv[1], std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    cmark_gfm_core_extensions_ensure_registered();
    cmark_syntax_extension* strikethrough = cmark_find_syntax_extension("strikethrough");
    std::cout << sablequill::leastTime([&] { parse(text, strikethrough); }) << std::endl;
}
