#pragma once
// Cost layers: one BuyPrice row per delivery, holding what is left of it.
// A sale, an exchange and the move of shelf goods to the problem stock each
// take one piece from a layer; a return and a void give it back by ID.
#include <QString>
#include <cstdint>

// Takes one piece from the goods row's cost layers, the oldest first when the
// shop sells first in, first out (SellOrder 0), the newest first otherwise.
// Cost gets the layer's price and ID its number; when no layer has a piece
// left nothing is written, Cost is 0 and ID keeps what the caller held.
void TakeCostLayer(const QString& StoreGUID, int32_t& ID, float& Cost);
