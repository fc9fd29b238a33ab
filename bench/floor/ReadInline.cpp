// SPDX-License-Identifier: MIT
//
// read_inline FILE: the microseconds that the program's reader of inline Markdown takes for the
// file, measured as those of cmark-gfm alone are.
#include "InlineMarkdown.h"
#include "Timing.h"

#include <QFile>

#include <iostream>

int main(int argc, char* argv[])
{
    if (argc != 2)
        return 1;
    QFile file(QString::fromLocal8Bit(argv[1]));
    if (!file.open(QFile::ReadOnly))
        return 1;
    const QString text = QString::fromUtf8(file.readAll());
    std::cout << sablequill::leastTime([&] { sablequill::InlineMarkdown::read(text); })
              << std::endl;
}
