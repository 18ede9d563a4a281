// The open documents. One instance, `documents`; the pass marks the current sheet as changed.
#pragma once

#include <cstdint>

#include "base/table.hpp"

inline constexpr int kDocumentsMaxi = 15;

struct Document {
    bool document_modifie = false;       // the sheet differs from its file
};

struct Documents {
    std::int16_t document_courant = 1;   // number of the sheet in `txt`, 1 to nombre_document
    std::int16_t nombre_document = 1;    // open documents, 1 to 15
    Table<Document> document{kDocumentsMaxi};
};
extern Documents documents;
