#pragma once

#include "windows/com/Win32.h"
