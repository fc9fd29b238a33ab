// SPDX-License-Identifier: MIT
#include "ObservableObject.h"
