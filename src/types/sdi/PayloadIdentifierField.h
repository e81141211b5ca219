#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <utility>

namespace Velmora::Sdi {

/// Where one field of a payload identifier lies: a byte (0 to 3, for bytes 1 to 4 of SMPTE ST 352) and the
/// bits of that byte, listed from the field's least significant bit to its most significant one.
class PayloadIdentifierField {
public:
    constexpr PayloadIdentifierField() = default;
    constexpr PayloadIdentifierField(unsigned byteIndex, std::initializer_list<unsigned> bits)
        : m_byteIndex(static_cast<std::uint8_t>(byteIndex & 3U))
    {
        for (const unsigned bit : bits) {
            if (m_bitCount == m_bits.size())
                break;
            m_isRun = m_isRun && (m_bitCount == 0 || (bit & 7U) == m_bits[m_bitCount - 1] + 1U);
            m_bits[m_bitCount++] = static_cast<std::uint8_t>(bit & 7U);
        }
    }

    constexpr unsigned byteIndex() const { return m_byteIndex; }
    constexpr unsigned bitCount() const { return m_bitCount; }
    /// Position in its byte of bit number @p index of the value.
    constexpr unsigned bit(unsigned index) const { return m_bits[index]; }

    /// The field's value in @p word, whose most significant byte is byte 1 of ST 352.
    constexpr unsigned read(std::uint32_t word) const
    {
        if (m_isRun)
            return (word >> shiftOf(0)) & valueMask();
        unsigned value = 0;
        for (unsigned i = 0; i < m_bitCount; ++i)
            value |= ((word >> shiftOf(i)) & 1U) << i;
        return value;
    }

    /// @p word with the field set to the low bits of @p value.
    constexpr std::uint32_t write(std::uint32_t word, unsigned value) const
    {
        if (m_isRun)
            return (word & ~(valueMask() << shiftOf(0))) | ((value & valueMask()) << shiftOf(0));
        for (unsigned i = 0; i < m_bitCount; ++i) {
            const std::uint32_t bit = std::uint32_t{1} << shiftOf(i);
            word = ((value >> i) & 1U) != 0 ? word | bit : word & ~bit;
        }
        return word;
    }

    /// The bits of the word that the field covers.
    constexpr std::uint32_t mask() const { return write(0, ~0U); }

    friend constexpr bool operator==(const PayloadIdentifierField&, const PayloadIdentifierField&) = default;

private:
    constexpr std::uint32_t valueMask() const { return (std::uint32_t{1} << m_bitCount) - 1; }
    constexpr unsigned shiftOf(unsigned index) const { return 8U * (3U - m_byteIndex) + m_bits[index]; }

    std::uint8_t m_byteIndex = 0;
    std::uint8_t m_bitCount = 0;
    bool m_isRun = true; ///< the bits follow each other upwards: nearly all fields, and much the quickest
    std::array<std::uint8_t, 8> m_bits{};
};

/// The fields that a payload identifier can have.
enum class PayloadIdentifierFieldType : std::uint8_t {
    PayloadAndDigitalInterface,
    PictureRate,
    TransferCharacteristics,
    PictureFormat,
    TransportFormat,
    SamplingStructure,
    HorizontalPixelArraySize,
    BitDepth,
    LuminanceAndColourDifferenceSignal,
    Channel,
    Colourimetry,
    AspectRatio,
    AudioCopyStatus,
};

inline constexpr std::size_t kPayloadIdentifierFieldTypes = 13;

/// Ordered map from field type to the place of the field. A constant expression, so that each family's map
/// exists once, in read-only memory, however many identifiers refer to it.
class PayloadIdentifierFieldMap {
public:
    using Type = PayloadIdentifierFieldType;

    constexpr PayloadIdentifierFieldMap() = default;
    constexpr PayloadIdentifierFieldMap(std::initializer_list<std::pair<Type, PayloadIdentifierField>> fields)
    {
        for (const auto& [type, field] : fields)
            m_fields[indexOf(type)] = field;
    }

    /// This map with one field added, or moved to another place.
    constexpr PayloadIdentifierFieldMap with(Type type, const PayloadIdentifierField& field) const
    {
        auto map = *this;
        map.m_fields[indexOf(type)] = field;
        return map;
    }

    constexpr PayloadIdentifierFieldMap without(std::initializer_list<Type> types) const
    {
        auto map = *this;
        for (const Type type : types)
            map.m_fields[indexOf(type)] = {};
        return map;
    }

    constexpr bool contains(Type type) const { return m_fields[indexOf(type)].bitCount() != 0; }
    /// The field's place; one without bits where the map lacks the field.
    constexpr const PayloadIdentifierField& at(Type type) const { return m_fields[indexOf(type)]; }

    /// Every bit of the word that some field covers.
    constexpr std::uint32_t mask() const
    {
        std::uint32_t mask = 0;
        for (const auto& field : m_fields)
            mask |= field.mask();
        return mask;
    }

    /// Whether no bit belongs to two fields, nor twice to one.
    constexpr bool isFreeOfOverlap() const
    {
        std::uint32_t seen = 0;
        for (const auto& field : m_fields) {
            for (unsigned i = 0; i < field.bitCount(); ++i) {
                const std::uint32_t bit = PayloadIdentifierField(field.byteIndex(), {field.bit(i)}).mask();
                if ((seen & bit) != 0)
                    return false;
                seen |= bit;
            }
        }
        return true;
    }

    friend constexpr bool operator==(const PayloadIdentifierFieldMap&,
                                     const PayloadIdentifierFieldMap&) = default;

private:
    static constexpr std::size_t indexOf(Type type) { return static_cast<std::size_t>(type); }

    std::array<PayloadIdentifierField, kPayloadIdentifierFieldTypes> m_fields{};
};

} // namespace Velmora::Sdi
