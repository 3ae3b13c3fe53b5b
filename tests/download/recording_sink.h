#pragma once
#include "tests/common/test_support.h"
