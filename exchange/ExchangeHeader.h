// Reads the header of a file that a company sent.
#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "exchange/ExchangeFile.h"

namespace tevra {

/// "Fisierul XML nu poate fi incarcat".
inline constexpr const char* kNotLoaded = "Fisierul XML nu poate fi incarcat";

/// The header's texts by element. The first element of a name counts.
using HeaderTexts = std::map<std::string, std::string, std::less<>>;

/// Opens a file that the user named; its name is found without case. Throws Failure 53 or 70.
std::ifstream OpenExchange(const std::string& file);

/// Reads the whole document, so that damage anywhere in it is found before anything is written.
/// Throws Failure 53, 70, or -2147467259 with the file's name and the line.
HeaderTexts LoadExchange(const std::string& file);

/// The header's values; a date is read day first, with "." or "/". Throws Failure with the name of
/// the file and of the element: -2147467259 for a missing one, 13 for one that cannot be read,
/// -2147217887 for a code that is not one or two letters or digits.
ExchangeHeader GetXMLHeader(const HeaderTexts& texts, const std::string& file);

/// "Sucursala cu codul 01 este sociatatea pe care lucrati acum, nu puteti face import"; empty when
/// the file comes from another company than the open one.
std::string OwnFileText(const ExchangeHeader& header);

}  // namespace tevra
