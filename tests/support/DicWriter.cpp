#include "support/DicWriter.h"
