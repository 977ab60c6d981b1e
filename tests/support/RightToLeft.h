// Lines with letters that run to the left, and the order from left to right in which FriBidi has them seen.
#pragma once

#include <string_view>
#include <utility>

namespace velmora {

inline constexpr std::pair<const char*, std::u32string_view> kRightToLeft[] = {
    {"אב", U"בא"},
    {"אב 12", U"12 בא"},
    {"ab אב 12 cd", U"ab 12 בא cd"}, // a number among letters that run to the left is part of them
    {"12-34 אב", U"בא 12-34"},
    {"אב (1/2), c", U"c ,(1/2) בא"},
    {"שעה 12:30 תיק", U"קית 12:30 העש"},
    {"Tab (שלום) 5", U"Tab (םולש) 5"},   // a pair of brackets goes with what surrounds it
    {"חשבון (abc) 2", U"2 (abc) ןובשח"}, // and so does its other half
    {"100% הנחה", U"החנה 100%"},         // a sign beside a number belongs to it
    {"₪50 מחיר", U"ריחמ ₪50"},
    {"מחיר 50₪", U"50₪ ריחמ"},
    {"١٢ ٣٤", U"٣٤ ١٢"}, // Arabic numbers run to the right, but follow each other to the left
    {"مرحبا 123", U"123 ابحرم"},
    {"abc مرحبا def", U"abc ابحرم def"},
    {"خصم ٪١٠", U"١٠٪ مصخ"},
    {"12.5% הנחה", U"החנה 12.5%"},
    {"א-b-ג", U"ג-b-א"},
    {"ב.ג 3,4", U"3,4 ג.ב"},
    {"שלום, world!", U"!world ,םולש"},
    {"(א) [ב] {ג} <1>", U"<1> {ג} [ב] (א)"},
    {"1. פרק: א\"ב/ג", U"ג/ב\"א :קרפ .1"},
    {"$20 + €5 מחיר", U"ריחמ €5 + $20"},
};

} // namespace velmora
