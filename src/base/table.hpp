// Tables numbered from 1: an access outside the bounds is failure 9, never undefined behaviour.
// Holds no state of its own.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "base/failure.hpp"

template <class T>
class Table {
public:
    Table() = default;
    // A table of `taille` elements, numbered 1 to `taille`.
    explicit Table(std::size_t taille) : elements_(taille) {}

    std::size_t taille() const { return elements_.size(); }

    // Element `indice`, from 1. Refuses any other index with failure 9.
    T& operator()(std::ptrdiff_t indice) {
        if (indice < 1 || static_cast<std::size_t>(indice) > elements_.size()) echoue(kIndice);
        return elements_[static_cast<std::size_t>(indice) - 1];
    }
    const T& operator()(std::ptrdiff_t indice) const {
        if (indice < 1 || static_cast<std::size_t>(indice) > elements_.size()) echoue(kIndice);
        return elements_[static_cast<std::size_t>(indice) - 1];
    }

    // Makes the table `taille` elements long; the elements that stay keep their contents.
    void redimensionne(std::size_t taille) { elements_.resize(taille); }
    // Adds an element at the end.
    void ajoute(T element) { elements_.push_back(std::move(element)); }
    // Empties the table and gives its memory back.
    void libere() { std::vector<T>().swap(elements_); }

    auto begin() { return elements_.begin(); }
    auto end() { return elements_.end(); }
    auto begin() const { return elements_.begin(); }
    auto end() const { return elements_.end(); }

private:
    std::vector<T> elements_;
};
