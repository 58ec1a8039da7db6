#pragma once
// Routines of the counter that other windows lean on: the cost layer taken
// for one piece sold, and the numbering of sales.
#include <QString>
#include <cstdint>

// Takes one piece from the goods row's cost layers, the oldest first when the
// shop sells first in, first out (SellOrder 0), the newest first otherwise.
// Cost gets the layer's price and ID its number; when no layer has a piece
// left nothing is written, Cost is 0 and ID keeps what the caller held.
void TakeCostLayer(const QString& StoreGUID, int32_t& ID, float& Cost);

// The first number of the day: today as yyyymmdd and "0001".
QString FirstSellNo();
// The number the next sale of the shop gets today: one above the highest
// number of the day, whatever became of that sale. Empty when the read failed.
QString NextSellNo();
