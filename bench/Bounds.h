// What a cost may be. Each row of the benchmark says so, and the program fails where one has passed its bound.
#pragma once

#include <string>

namespace cordboard::bench {

// Gives " <= 1.25", or " >  1.25 !" where the value is greater than that, and keeps in mind what was too much.
std::string Held(const std::string& row, double value, double bound);

// Keeps in mind what is wrong with the bounds themselves.
void Complain(const std::string& complaint);

// Says on standard error what was too much or wrong; whether there was anything.
bool ReportComplaints();

}  // namespace cordboard::bench
