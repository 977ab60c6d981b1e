// Numbers of the records in an .xls workbook.
#pragma once

namespace velmora::biff {

enum Record : int {
    kFormula = 0x0006,
    kEof = 0x000A,
    kDateMode = 0x0022,
    kFilePass = 0x002F,
    kFont = 0x0031,
    kContinue = 0x003C,
    kWindow1 = 0x003D,
    kCodePage = 0x0042,
    kBoundSheet = 0x0085,
    kMulRk = 0x00BD,
    kRString = 0x00D6,
    kXf = 0x00E0,
    kSst = 0x00FC,
    kLabelSst = 0x00FD,
    kDimensions = 0x0200,
    kNumber = 0x0203,
    kLabel = 0x0204,
    kBoolErr = 0x0205,
    kString = 0x0207,
    kRow = 0x0208,
    kWindow2 = 0x023E,
    kRk = 0x027E,
    kStyle = 0x0293,
    kFormat = 0x041E,
    kBof = 0x0809
};

inline constexpr int kMostRecordBytes = 8224;
inline constexpr int kMostRows = 65536;

} // namespace velmora::biff
