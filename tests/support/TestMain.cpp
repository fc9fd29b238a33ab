// SPDX-License-Identifier: MIT
#include "FailOnWarning.h"

#include <QCoreApplication>

int main(int argc, char* argv[])
{
    testing::InitGoogleTest(&argc, argv);
    sablequill::failOnWarnings();
    QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
