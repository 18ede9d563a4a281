// The call of a function: reads it in the fixed protocol of brackets and commas that its row of the table
// names, and computes it. Changes the registers of `moteur`.
#pragma once

double compile_f() noexcept;   // value of the call of function type_f, whose name is in l_symbole
