#pragma once
// The numbering of sales.
#include <QString>
#include <cstdint>

// The first number of the day: today as yyyymmdd and "0001".
QString FirstSellNo();
// The number the next sale of the shop gets today: one above the highest
// number of the day, whatever became of that sale. Empty when the read failed.
QString NextSellNo();
