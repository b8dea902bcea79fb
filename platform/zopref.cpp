#include "zopref.h"

ZoPref::~ZoPref() = default;

ZoPrefProvider::~ZoPrefProvider() = default;
