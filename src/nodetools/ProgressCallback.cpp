#include "nodetools/ProgressCallback.h"

ProgressCallback::~ProgressCallback() = default;
