// The table of what each conversion must give, for tests. conversion_cases.py says how it is made.
#pragma once

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <levelwidgets/platform/conversion.h>

namespace levelwidgets::conversions {

struct ConversionCase {
  std::string operation;
  std::string locale;
  std::string value;
  std::string format;
  std::string days;
  std::string expected;
  std::string remark;

  // Points into this case.
  ConversionValue Value() const {
    const char* text = value.c_str() + 2;
    switch (value.front()) {
      case 'r': return std::strtod(text, nullptr);
      case 'f': return std::strtof(text, nullptr);
      case 'i': return static_cast<std::int32_t>(std::strtol(text, nullptr, 10));
      case 'b': return *text == '1';
      case 'd': return Date{std::strtod(text, nullptr)};
      case 'n': return NullValue{};
      case 'e': return EmptyValue{};
      default: return std::string_view(text);
    }
  }
  int FirstDay() const { return days[0] - '0'; }
  int FirstWeek() const { return days[2] - '0'; }
  std::string Describe() const { return operation + " " + locale + " " + value + " by \"" + format + "\""; }
};

struct ConversionCases {
  std::map<std::string, std::string> remarks;  // their meanings
  std::vector<ConversionCase> cases;
};

inline ConversionCases ReadConversionCases(const std::string& source_folder) {
  std::ifstream file(source_folder + "/levelwidgets/platform/conversions/conversion_cases.tsv",
                     std::ios::binary);
  if (!file) throw std::runtime_error("the table of conversions cannot be read");
  ConversionCases table;
  for (std::string line; std::getline(file, line);) {
    std::vector<std::string> fields;
    std::size_t end = 0;
    for (std::size_t begin = 0; end != std::string::npos; begin = end + 1) {
      end = line.find('\t', begin);
      fields.push_back(line.substr(begin, end - begin));
    }
    if (line.starts_with("# ")) {
      table.remarks[fields[0].substr(2)] = fields[1];
    } else {
      table.cases.push_back({fields[0], fields[1], fields[2], fields[3], fields[4], fields[5], fields[6]});
    }
  }
  return table;
}

template <typename T>
std::string ErrorText(const Converted<T>& result) {
  return "error " + std::to_string(static_cast<int>(result.status));
}

inline std::string DoubleText(double number) {
  char text[32];
  std::snprintf(text, sizeof text, "%.17g", number);
  return text;
}

// What `conversions` make of a case, as the table writes it; numbers with 17 digits.
inline std::string ResultOf(const ConversionCase& c, ConversionApi& conversions) {
  if (c.operation == "fmt") {
    const auto text = conversions.Format(c.Value(), c.format, c.FirstDay(), c.FirstWeek());
    return text ? text.value : ErrorText(text);
  }
  if (c.operation == "text") {
    const auto text = conversions.ToText(c.Value());
    return text ? text.value : ErrorText(text);
  }
  if (c.operation == "num") {
    const auto number = conversions.ToDouble(c.Value());
    return number ? DoubleText(number.value) : ErrorText(number);
  }
  if (!conversions.IsDate(c.Value())) return "error 13";
  const auto date = conversions.ToDate(c.Value());
  return date ? DoubleText(date.value.days) : ErrorText(date);
}

// The expected result in the same form.
inline std::string ExpectedOf(const ConversionCase& c) {
  const bool is_number = (c.operation == "num" || c.operation == "date") && !c.expected.starts_with("error");
  return is_number ? DoubleText(std::strtod(c.expected.c_str(), nullptr)) : c.expected;
}

}  // namespace levelwidgets::conversions
