// The instance of the open documents.
#include "documents/open_documents.hpp"

Documents documents;
