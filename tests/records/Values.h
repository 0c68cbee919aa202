#ifndef QUAVERA_TESTS_RECORDS_VALUES_H_
#define QUAVERA_TESTS_RECORDS_VALUES_H_

#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

/// Keeps the values that the members of SOAP records point to, for as long as it lives.
class Values {
 public:
    std::string* Text(std::string text) { return Of(std::move(text)); }

    /// A number, a flag, or a record.
    template <class T>
    T* Of(T value) {
        auto kept = std::make_shared<T>(std::move(value));
        T* const pointer = kept.get();
        kept_.push_back(std::move(kept));
        return pointer;
    }

    /// The SOAP record that a sample fills.
    template <class Sample>
    typename Sample::Soap* Filled() {
        auto* const soap = Of(typename Sample::Soap());
        Sample::Fill(*soap, *this);
        return soap;
    }

    /// A wrapper record of these items: `values.List<Quavera2__ArrayOfString>({"a", "b"})`.
    template <class Wrapper>
    Wrapper* List(
        std::vector<std::remove_pointer_t<decltype(std::declval<Wrapper>().items)>> items) {
        auto* const kept = Of(std::move(items));
        Wrapper wrapper;
        wrapper.items = kept->data();
        wrapper.count = static_cast<int>(kept->size());
        return Of(wrapper);
    }

 private:
    std::vector<std::shared_ptr<void>> kept_;
};

#endif  // QUAVERA_TESTS_RECORDS_VALUES_H_
